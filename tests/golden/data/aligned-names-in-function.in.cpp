// ALIGN_DD_NAMES_LEFT in a function body: the locals' names in one column, counted from the body's indent.
void f()
{
int i;
double total;
char* p;
}
