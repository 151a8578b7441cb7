// DATA_DO_NOT_FORMAT: the white space between type and name stays; the declarator list is still spaced.
int    a ,b;
unsigned   long  total=0 ,  count;
