// The gap between "else" and "if" becomes one blank; a block comment stays in it, a line comment ends the else's line.
void f()
{
    if (a) { x(); }
    else
        if (b) { y(); }
    else /* c */ if (c) { z(); }
    else // d
    if (d) { w(); }
}
