// Nested namespaces under GNU: braces on their own lines, two-column steps.
namespace outer
{
  namespace inner
  {
    int x;
  }
  namespace
  {
    static int hidden;
  }
}
