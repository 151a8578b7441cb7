// Always brace (if/else): a single statement gains braces, laid out by the formatter.
void f(int a, int b)
{
    if (a) b++;
    if (a)
        b--;
}
