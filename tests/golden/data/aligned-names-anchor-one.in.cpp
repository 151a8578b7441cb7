// Aligned names with ASTERISK_ANCHOR 1: "const char", padding, "*name".
int count;
const char* name;
double   ratio;
