// A comment between "}" and "else" keeps its gaps: WS_BETWEEN_CS " " is not applied to it or to the else behind it.
void f()
{
    if (a) {
        x();
    }
    // otherwise
    else {
        y();
    }
    if (b) {
        x();
    } /* c */ else {
        y();
    }
}
