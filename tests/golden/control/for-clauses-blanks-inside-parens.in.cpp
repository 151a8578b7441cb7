// Blanks inside the parentheses (WS_AFTER_CS_OPEN_PAREN, WS_BEFORE_CS_CLOSE_PAREN " "): round a condition and round the clauses of a for, but "for (;;)" stays empty, and an empty clause gets no blank of its own.
void f()
{
    if(a&&b) x();
    for(int i=0;i<n;++i) x();
    for (;;) y();
    for (i = 0; i < n;) i++;
    for (; i < n; i++) { }
    while(  q  ) { }
}
