// An inline namespace, and a namespace head with a macro, read as namespaces.
inline namespace v1
{
    int f(int x);
}
namespace std _GLIBCXX_VISIBILITY(default)
{
    int g(int y);
}
int h(int  z)
{
    return  z;
}
