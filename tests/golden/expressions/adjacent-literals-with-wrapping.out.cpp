// With line wrapping on, adjacent string literals come onto one line, one blank apart; a comment between them stays behind the blank.
void f()
{
    s = "a" "b";
    t = "c" /* and */ "d";
}
