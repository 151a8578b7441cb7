// Declarator lists under K&R: the "*" at the name.
int  a=1,b ,c= a+b;
char* p ,*q;
int table[3]={1,2,3}, size;
