// Under the built-in scheme "Leave as is" every byte stays where it is.
#include <stdio.h>
#  define  MAX(a,b)   ((a)>(b)?(a):(b))
namespace  n {
class   Widget:public Base{
  public :
	Widget ( int  w ) : m_w( w ){ }
    int   width( ) const{return m_w ;}   
private:
    int m_w;
};
enum  Colour{RED,GREEN = 2 ,
      BLUE};
}
int main(int argc,char**argv)
{
	for(int i=0;i<argc;++i){ if (argv[i][0]=='-')continue; else printf( "%s\n",argv[i] ); }
    switch(argc){case 1:return 0;
    default : break;}
    do{ --argc; }while( argc>0 ) ;
  return MAX( argc , 1 );
}
