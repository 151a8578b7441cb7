// FN_DO_NOT_FORMAT keeps the type of a head as it stands, yet the parameter list still follows its settings.
unsigned    long   count(int a,int b);
static  char *name(int a,int b);
