// HANGING_ASTERISK: the "*" stands one column left of the names.
int count;
const char* name;
double   ratio;
