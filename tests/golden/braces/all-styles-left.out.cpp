// Leave as is (all three): the rewriter does not run; braced and unbraced bodies stay as they are.
void f(int a, int b)
{
    if (a)
        b++;
    else
    {
        b--;
    }
    for (;;)
    {
        b++;
    }
    while (a)
        a--;
}
