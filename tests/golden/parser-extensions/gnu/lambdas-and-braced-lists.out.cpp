// Lambdas with statement bodies and braced lists belong to their statement.
void
f (std::vector<int> &v)
{
  auto add = [&](int x) { v.push_back (x); return x; };
  std::sort (v.begin (), v.end (), [](int a, int b) { return a < b; });
  g ({1, 2});
}
