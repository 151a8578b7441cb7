// The function sample with ALIGN_FN_DECL_NAMES_LEFT: a run of prototypes puts its names in one column; data declarations and comments do not end the run.
// group of function declarations
void                callme1(int ph);
String*             callme2(int ph, Date when);

// something in between
int i;
char* c;

// another group of functions
VeryLongClassName   callme3();
int                 callme4();

bool Equal(const char* a, const char* b)
{
    return strcmp(a, b) == 0;
}
