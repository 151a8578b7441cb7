// A requires clause behind a template head is part of the head, and angle brackets in parentheses of a template's list are comparisons.
template <class T>
  requires std::integral<T> && (sizeof(T) > 2)
T twice(T x) { return x*2; }
template <bool B = (N < 2)>
struct Small { static constexpr bool value = B; };
int f(int n)
{
    if (n != int{}) { return n; }
    return 0;
}
