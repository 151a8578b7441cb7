// "struct S { } s;": the declarator behind the body belongs to it and is not aligned; the declarations after it are.
struct Point
{
    int x;
    int y;
}  origin;
int     a;
long    count;
