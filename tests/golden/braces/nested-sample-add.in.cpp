// Always brace (all three): a sample of nested if/else, for, while and do.
int count(const int* p, int n, int limit)
{
    int total = 0;
    for (int i = 0; i < n; ++i)
        if (p[i] > limit)
            while (total < limit) total++;
        else if (p[i] < 0)
            do total--; while (total > 0);
        else
            total += p[i];
    while (total > 100) { total /= 2; }
    return total;
}
