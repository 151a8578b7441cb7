// Always brace (if/else): an else-if chain stays a chain; every branch's statement is braced.
void f(int a, int b, int c, int d, int e)
{
    if (a)
    {
        b++;
    }
    else if (c)
    {
        d++;
    }
    else
    {
        e++;
    }
}
