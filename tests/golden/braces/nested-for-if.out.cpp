// Always brace (for), leave (if/else): the for's body gains braces, the if inside it keeps its own text.
void f(int a, int b)
{
    for (;;)
    {
        if (a)
            b++;
    }
}
