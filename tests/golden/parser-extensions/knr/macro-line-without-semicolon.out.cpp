// A macro line without a semicolon ends before a namespace, a closing brace and the end of the file.
BEGIN_DECLS
namespace a {
    NS_BEGIN
    int f(int x);
    NS_END
}
int g(int  y)
{
    return  y + 1;
}
END_DECLS
