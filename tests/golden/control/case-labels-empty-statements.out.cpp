// A label with an empty statement or nothing behind it: the ";" takes a statement's place, and a label before "}" adds no line of its own.
void f()
{
    switch (c)
    {
        case 1:
            ;
        case 2:
            ;
            ;
        default:
            ;
    }
    switch (d)
    {
        default:
    }
}
