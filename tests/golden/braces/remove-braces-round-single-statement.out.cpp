// Never brace (if/else): braces round one statement go; round two statements they stay.
void f(int a, int b, int c)
{
    if (a)
        b++;
    if (a)
        b--;
    if (a)
    {
        b++; c++;
    }
}
