// Prototypes in a run align their names; with ASTERISK_ANCHOR 1 the "*" stands in the name column.
void                callme1(int ph);
String              *callme2(int ph, Date when);
// a comment does not end the run
VeryLongClassName   callme3();
int                 callme4();

int defined()
{
    return 0;
}
int *after();
