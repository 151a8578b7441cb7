// A TW-FORMAT-OFF with no TW-FORMAT-ON behind it fences nothing: everything is laid out.
void f()
{
    // TW-FORMAT-OFF
    if (a)
    {
        x = 1;
    }
}
