// A string longer than the margin is not split.
const char* s = "a string literal much longer than the margin";
