// WS_BETWEEN_CS_FOR_CLAUSES not set: the gaps round the semicolons stay as they are; the clauses are still formatted.
void f()
{
    for (int i = 0;i < n;++i){x += i;}
    for (i = 0 ;  i < n ;i++) { }
    for (;;) { }
}
