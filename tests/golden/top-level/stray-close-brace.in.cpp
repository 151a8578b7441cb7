// A stray closing brace at file level is skipped by the parser; it must still come out.
int x;
}
int   y;
