// 41 columns: wrapped.
void f()
{
    total = alpha +
            beta +
            gamma +
            abcde;
}
