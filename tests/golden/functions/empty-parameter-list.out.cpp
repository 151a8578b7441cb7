// An empty parameter list loses its blanks when either parenthesis setting is set.
void f();
void g()
{
}
