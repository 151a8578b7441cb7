// A data declaration in a function body keeps its inner layout and moves to the body's indent; control statements are laid out.
void f()
{
    int  a = 1;
    if (a)
    {
        b() ;
    }
    else
        c();
}
