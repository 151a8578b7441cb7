// A "//" comment right in front of "}": its newline stays, the brace goes on the next line.
void f()
{
run(); // last
}
void g() { run(); // last
}
