// A sign at the start or after "(" is no break point; "a - b" is.
void f()
{
    value = -first - second - (-third) - fourth;
}
