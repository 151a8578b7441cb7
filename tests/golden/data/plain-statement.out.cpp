// A plain statement such as "x = y;" has no type and no name; only its initialiser is spaced.
void f()
{
    x = y;
    total += x * 2;
}
