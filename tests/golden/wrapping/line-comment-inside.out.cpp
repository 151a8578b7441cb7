// A line comment inside a statement puts the next token on a new line.
void f()
{
    total = first + // the first
            second +
            third +
            fourth +
            fifth +
            sixth;
}
