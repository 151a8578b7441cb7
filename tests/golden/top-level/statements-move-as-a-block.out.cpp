// Control statements in a function body keep their inner layout and move to the body's indent; data declarations are laid out.
void f()
{
    int a = 1;
    if(a)
    {
      b ( ) ;
    }
    else  c();
}
