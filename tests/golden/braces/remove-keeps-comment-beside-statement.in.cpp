// Never brace: a comment beside the statement is a second child, so the braces stay.
void f(int a, int b)
{
    if (a) { /* c */ b++; }
    if (a) {
        // why
        b--;
    }
}
