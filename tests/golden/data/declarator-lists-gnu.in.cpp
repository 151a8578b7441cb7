// Declarator lists under GNU.
int  a=1,b ,c= a+b;
char* p ,*q;
int table[3]={1,2,3}, size;
