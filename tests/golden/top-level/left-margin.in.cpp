// LEFT_MARGIN: every non-empty top-level line starts with it; an empty line stays empty.

void f() {
x();
}

int g();
