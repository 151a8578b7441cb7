// Always brace (all three): do, switch and try are never touched, nor what they hold; the while of a do is part of the do.
void f(int a, int b)
{
    do
        a++;
    while (a < b);
    switch (a)
    {
        case 1:
            if (b)
                a++; break;
    }
    try
    {
        if (a)
            b++;
    }
    catch (...)
    {
        while (b)
            b--;
    }
}
