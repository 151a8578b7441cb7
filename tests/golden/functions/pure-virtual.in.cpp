// A pure specifier and the qualifiers go through the expression formatter.
virtual void draw() const=0;
virtual int   size( ) const   =   0 ;
