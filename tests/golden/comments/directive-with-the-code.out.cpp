// ALIGN_PPD_LEFT_MOST false: a directive is indented with the code around it.
void f()
{
    #if DEBUG
    trace();
    #endif
}
