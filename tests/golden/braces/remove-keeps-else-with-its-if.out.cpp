// Never brace: braces that hold an else to its if stay, even round a single statement.
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
        if (b)
            c++;
}
