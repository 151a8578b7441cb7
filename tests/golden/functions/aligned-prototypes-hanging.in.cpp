// With HANGING_ASTERISK the "*" hangs one column left of the aligned names.
int* first();
long second();
char** third();
