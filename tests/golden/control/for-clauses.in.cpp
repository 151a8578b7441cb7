// for clauses with WS_BETWEEN_CS_FOR_CLAUSES " ": one blank behind each semicolon, none in front; empty clauses stay empty.
void f()
{
    for(int i=0;i<n;++i){x+=i;}
    for (;;) { wait(); }
    for(;i<n;) { i++; }
    for (i = 0 ; ; i++) { }
    for ( char *p=s ; *p ; ++p ) { count++; }
    for (i = 0, j = n; i < j; i++, j--) { swap(i, j); }
}
