// The data declaration right behind "struct S { } s;" is not aligned, and the alignment is back for the one after it.
struct S
{
    int a;
}   s;
int         b;
const char* text;
