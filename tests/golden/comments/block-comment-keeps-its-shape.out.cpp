// A block comment over several lines moves as a whole: its later lines keep their place relative to its first character.
void f()
{
    /*
     * One.
     *   Two, indented.
     */
    run();
    /* deeper
       still */
}
