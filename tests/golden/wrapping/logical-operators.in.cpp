// Once the logical rung is taken every "&&" and "||" of the level breaks.
void f()
{
    if (alpha && beta || gamma && deltas)
        g();
}
