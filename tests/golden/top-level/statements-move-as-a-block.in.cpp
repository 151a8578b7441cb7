// Control statements and data declarations in a function body keep their inner layout and move to the body's indent.
void f()
{
int  a = 1;
if(a)
{
  b ( ) ;
}
else  c();
}
