// A comment in an expression is never lost; a "//" comment keeps its line.
void f()
{
x = a /* c */ + b;
y = a + // why
    b;
}
