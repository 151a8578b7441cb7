// An access label inside a function body does not parse: the file stays as it was.
void f()
{
    int a;
public:
    int b;
}
