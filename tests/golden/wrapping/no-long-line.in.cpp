// Nothing long: byte for byte.
int f(int a)
{
    return a + 1;
}
