// ALIGN_CS_FOR_CLAUSES_LEFT: one clause a line, the second and third under the first; empty clauses stay empty.
void f()
{
    for(int i=0;i<n;++i){x+=i;}
    for (;;) { wait(); }
    for (i = 0; i < n; ) { i++; }
        for (p = head; p; p = p->next)
            use(p);
}
