// Calls, their arguments, empty parentheses and subscripts.
void f()
{
    f(a, b);
    g(x, -y);
    h();
    a[i] = m[i][j];
}
