// Never brace (all three): do, switch and try keep their braces, and so does what they hold.
void f(int a, int b)
{
    do { a++; } while (a < b);
    switch (a) {
    case 1: if (b) { a++; } break;
    }
    try { if (a) { b++; } } catch (...) { while (b) { b--; } }
}
