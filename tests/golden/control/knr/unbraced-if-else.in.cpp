// "if (a) b; else c;" with WS_BETWEEN_CS " " still breaks before "else": an else never joins an unbraced statement's line; behind braces it does.
void f()
{
    if (a) b(); else c();
    if (a) b(); else if (c) { d(); } else e();
    if (a) { b(); } else if (c) d(); else { e(); }
    do x(); while (y);
}
