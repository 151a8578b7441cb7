// Between TW-FORMAT-OFF and TW-FORMAT-ON comments the statements of a body pass as they stand; before and after they are laid out.
void f()
{
    if (a)
    {
        x = 1;
    }
    // TW-FORMAT-OFF
    if(a){x=1;}
    else   {  x =2 ; }
        for(;;)  y ( ) ;
    // TW-FORMAT-ON
    if (a)
    {
        x = 1;
    }
}
