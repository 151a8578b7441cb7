// Old-style casts are the last break point.
void f()
{
    p = (unsigned long)(unsigned char)qqqqqqqq;
}
