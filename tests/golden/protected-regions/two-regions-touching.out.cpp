// Two regions with no statement between them form one piece; with a statement between, that statement is laid out.
void f()
{
    // TW-FORMAT-OFF
    if(a)  x ( ) ;
    // TW-FORMAT-ON
    // TW-FORMAT-OFF
    if(b)  y ( ) ;
    // TW-FORMAT-ON
    if (c)
    {
        z();
    }
    // TW-FORMAT-OFF
    if(d)  w ( ) ;
    // TW-FORMAT-ON
}
