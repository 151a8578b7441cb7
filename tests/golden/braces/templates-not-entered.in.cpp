// Always brace: function templates and members of class templates keep their statements as written.
template <class T> void f(T a) { if (a) a++; }
template <class T> struct S {
    void g(T a) { if (a) a++; }
};
void h(int a) { if (a) a++; }
