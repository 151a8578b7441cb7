// ALIGN_PPD_LEFT_MOST: a directive inside a function goes to the margin; the statement behind it takes the block's indent.
void f()
{
#if DEBUG
    trace();
#endif
    run();
}
