// Conditions go through the expression formatter; a line that a comment breaks continues behind the "(".
void f()
{
    if ((a && b) || !c)
        x();
    if (first(a, b) && // both
        second(c))
    {
        y();
    }
    while (*p++)
    {
    }
    switch (x + 1)
    {
        default:
            break;
    }
}
