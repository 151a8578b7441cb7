// Classes, namespaces, enums, templates, linkage blocks and data declarations come out as they stand.
namespace  N{ int  a=1 ;
  class C{ public: int x ; };}
enum E{ A=1 , B };
template< class T > class D { };
extern "C" {  int  b ; }
struct S { int  x; }  s ;
int  a ,b=2 ;
