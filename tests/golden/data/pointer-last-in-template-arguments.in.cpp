// A pointer that ends template arguments written with a blank after "<": "Seq< T* >" gives "Seq<T*>", as "Seq<T* >" does, and a second run agrees.
typedef Functor< void , Seq< void* > > FunctorType;
Seq< T* > a;
Seq<T* > b;
