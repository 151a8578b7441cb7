// With LIST_WRAP_STRATEGY 2 each element of a long list goes on a line of its own.
void f()
{
    compute(alphabet,
            betatron,
            gammaray);
}
