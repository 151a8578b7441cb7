// Data declarations and control statements in a function body are laid out at the body's indent.
void f()
{
    int a = 1;
    if (a)
    {
        b() ;
    }
    else
        c();
}
