// Braces balanced only across #if branches: the first branch is read, the others are copied.
int f(int  a)
{
#ifdef WIDE
    if (a > 0)
    {
#else
    if (a) {
#endif
        a++;
    }
    return  a;
}
