// `>>` closes two template argument lists in a return type, a name and a parameter.
std::vector<std::vector<int>> rows(std::map<int, std::vector<int>>  m)
{
    return  convert(m);
}
template <>
void   f<A<int>>(int x) { g(x); }
