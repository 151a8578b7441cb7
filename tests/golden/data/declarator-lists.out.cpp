// Declarator lists spaced by WS_BEFORE_DD_COMMA and WS_BETWEEN_DD_ELEMENTS; initialisers by the operator rule.
int a = 1, b, c = a + b;
char* p, * q;
int table[3] = {1, 2, 3}, size;
