// Bare blocks: braces and content by the GLOBAL_ settings, from the indent of their place; empty lines before a block stay.
void f()
{
    x();
    {
        y();
    }

    {
        z();
        {
            w();
        }
    }
    // a comment

    {
        v();
    }
    {
    }
}
