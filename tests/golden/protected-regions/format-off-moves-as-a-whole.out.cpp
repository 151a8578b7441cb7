// A region whose first line moves to the indent of its place moves as a whole: its later lines keep their shape relative to the first.
void f()
{
    x();
    // TW-FORMAT-OFF
      if(a)  b();
          c ( ) ;
    // TW-FORMAT-ON
    y();
}
