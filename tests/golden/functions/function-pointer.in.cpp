// A function pointer: the blanks inside the name's parentheses next to them go, and its parameters are spaced.
int ( * compare )( const void * a ,const void * b );
