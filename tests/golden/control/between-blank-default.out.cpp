// WS_BETWEEN_CS " " under the default scheme: "} else {" behind braces; an else behind an unbraced statement still starts a line.
void f()
{
    if (a)
        b();
    else
        c();
    if (a)
    {
        b();
    } else
    {
        c();
    }
    try
    {
        b();
    } catch (...)
    {
        c();
    }
}
