// ALIGN_DD_NAMES_LEFT: a declaration behind a template head ("template <class T> class A;") is not padded; the run around it is.
template <typename T>
class Forward;
int     a;
double  b;
