// "<" without a matching ">" is a comparison; with one it opens a template-id, and nested closing brackets keep their blank.
void f()
{
    v = a < b;
    w = a <b> c;
    x = std::vector<std::vector<int> >();
    y = make_pair<int, int>(1, 2);
}
