// Always brace (if/else): both branches of an if/else gain braces.
void f(int a, int b, int c)
{
    if (a) b++; else c++;
}
