// Never brace: braces round a single statement that ends in an if stay when an else follows them.
void f(int a, int b, int c, int d)
{
    if (a)
    {
        if (b)
            c++;
    }
    else
        d++;
    if (a)
    {
        for (;;)
            if (b)
                c++;
    }
    else
        d++;
    if (a)
        while (c)
        {
            if (b)
                c--;
        }
    else
        d++;
    if (a)
    {
        if (b)
            c++;
        else
            c--;
    }
    else
        d++;
    if (a)
        if (b)
            c++;
}
