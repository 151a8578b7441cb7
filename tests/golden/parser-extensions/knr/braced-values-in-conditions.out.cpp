// Braces behind a name inside a condition are a value, not a body that ran away.
int f(std::size_t n, const std::string &s)
{
    if (n != std::size_t{}) {
        return 1;
    }
    while (Less{}(n, s.size()))
        n++;
    if (s == std::string{'-', 'x'})
        return 2;
    return 0;
}
