// The gaps next to "++" and "--" stay as they are, whatever the operator gap.
void f()
{
    i ++ + j;
    k = i++ +  --j;
    m = a + ++b;
}
