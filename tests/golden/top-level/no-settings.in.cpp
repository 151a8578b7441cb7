// A scheme without any property reproduces the text byte for byte.
  void   f( int  a ,char*b ){
	return  g( a,b ) ;}
class  C { int  x ; } ;


   // end