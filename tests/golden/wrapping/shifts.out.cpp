// Stream output breaks before a shift operator, under the first one.
void f()
{
    cout << alpha << beta << gamma
         << delta;
}
