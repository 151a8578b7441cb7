// A brace that is never closed: the parser reaches the end of the file, and the file stays as it was.
void f(int a)
{
    if (a) {
        g();
}
