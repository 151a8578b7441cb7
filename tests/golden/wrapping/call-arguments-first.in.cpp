// A call whose arguments run past the margin breaks at its commas first; the name stays.
void f()
{
    compute(alphabet, betatron, gammaray);
}
