// while, do-while and range for: keyword gap, parentheses, braces and bodies.
void f()
{
    while (x < 10)
    {
        x++;
    }
    do
    {
        x--;
    }
    while (x > 0);
    do
        x--;
    while (x > 0);
    do
    {
    }
    while (x);
    for (Item& v : values)
    {
        use(v);
    }
    while (a && b)
    {
        x();
    }
}
