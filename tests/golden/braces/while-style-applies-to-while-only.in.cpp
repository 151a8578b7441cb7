// Always brace (while only): a while statement's body gains braces; for, if and the while of a do do not.
void f(int a, int b)
{
    while (a) a--;
    do b++; while (b < 10);
    for (;;) b++;
    if (a) b++;
}
