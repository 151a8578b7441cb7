// Never brace: a lone declaration keeps its braces (without them it is no statement in C), as does a body with a stray semicolon.
void f(int a, int b)
{
    if (a)
    {
        int x = b;
    }
    if (a)
    {
        b++;;
    }
    else
        b--;
}
