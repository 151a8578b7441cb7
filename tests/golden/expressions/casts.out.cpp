// After a cast with a pointer inside, "&" is unary; after "(n)" it is binary. A named cast's type is a type.
void f()
{
    r = (char *) &s;
    t = (n) & u;
    u = (int) v;
    w = static_cast<char*>(q);
}
