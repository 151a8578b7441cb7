// A file with CR LF line ends under a scheme without any setting comes out byte for byte.
int  f(int a)
{
	return a  +  1;   
}

struct S { int x; };
