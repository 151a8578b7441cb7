// if, else and else-if chains: each "if" of an "else if" stays on the else's line, and the chain stays flat.
void f()
{
    if (a)
    {
        x = 1;
    }
    else
    {
        x = 2;
    }
    if (a)
    {
        x = 1;
    }
    else if (b)
    {
        x = 2;
    }
    else if (c)
    {
        x = 3;
    }
    else
    {
        x = 4;
    }
    if (a)
        if (b)
        {
            y();
        }
        else
        {
            z();
        }
}
