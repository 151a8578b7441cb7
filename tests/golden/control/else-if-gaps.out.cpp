// The gap between "else" and "if" becomes one blank; a block comment on the else's line stays in it; a line comment, or a comment on lines of its own, keeps its lines.
void f()
{
    if (a)
    {
        x();
    }
    else if (b)
    {
        y();
    }
    else /* c */ if (c)
    {
        z();
    }
    else // d
    if (d)
    {
        w();
    }
    else
    /* e, on its own line */
    if (e)
    {
        v();
    }
}
