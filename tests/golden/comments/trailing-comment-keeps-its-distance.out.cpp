// A trailing "//" comment keeps its distance from the code on its line.
void f()
{
    x = 1;      // one
    y = 22;     // two
}
