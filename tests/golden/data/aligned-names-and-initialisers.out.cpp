// ALIGN_DD_INITIALIZERS: the "=" of a run of declarations in one column, a tab stop behind the widest.
int a       = 1;
long count  = 2;
double r    = 0.5;
