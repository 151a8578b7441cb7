// `if constexpr` and a macro in its place read as if statements.
int
f (int  n)
{
  if constexpr (N > 2)
    {
      return n;
    }
  if _CONSTEXPR (N > 1)
    n++;
  return  n;
}
