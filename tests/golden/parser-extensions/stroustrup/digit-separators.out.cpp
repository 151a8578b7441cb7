// Digit separators stay inside their numbers.
const unsigned long long mask = 0xaaaa'aaaa'aaaa'aaaaULL;
int million()
{
    return 1'000'000;
}
int f(int n)
{
    if (n > 1'000) {
        return n;
    }
    return 0x8000'0000u;
}
