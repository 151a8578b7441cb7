// A region that holds only the body of an "if": the head is laid out, the body passes as it stands.
void f()
{
    if(a)
    // TW-FORMAT-OFF
    {   x =  1 ;
      y ( ) ; }
    // TW-FORMAT-ON
    if(b){z();}
}
