// With WS_BEFORE_FN_CLOSE_BRACE set to a blank the brace still goes on the next line after a "//" comment.
void f()
{
    run(); // last
}
