// Exactly 40 columns: not wrapped.
void f()
{
    total = alpha + beta + gamma + abcd;
}
