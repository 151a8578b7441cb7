// A comment between "}" and "else" is a part of the statement: the gaps round it are kept, no WS_BETWEEN_CS is applied to it or to the else behind it.
void f()
{
    if (a)
    {
        x();
    }   // a is set
    else
    {
        y();
    }
    if (b)
    {
        x();
    }
    /* b is not set */ else if (c)
    {
        y();
    }
    else
    {
        z();
    }
}
