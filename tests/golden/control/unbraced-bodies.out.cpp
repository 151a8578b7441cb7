// A body without braces takes the content indent on a line of its own; an "else" never joins an unbraced statement's line.
void f()
{
    if (a)
        b();
    else
        c();
    if (a)
        b();
    else if (c)
        d();
    else
        e();
    while (p)
        p = next(p);
    for (;;)
        if (done())
            break;
    while (wait()) ;
    if (a)
        if (b)
            c();
        else
            d();
}
