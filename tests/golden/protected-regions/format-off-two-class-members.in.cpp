// A fenced region over two neighbouring members of a class: both pass as they stand, as one piece.
class C
{
public:
    // TW-FORMAT-OFF
    int   a ;    int   b ;
    void  g( int  x )   { if(x)  a=x ; }
    // TW-FORMAT-ON
    int c;
};
