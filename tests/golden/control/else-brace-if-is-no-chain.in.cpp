// An "if" inside braces behind "else" is no chain: it indents as the content of the else's block.
void f()
{
    if (a) { x(); } else { if (b) { y(); } else if (c) { z(); } }
}
