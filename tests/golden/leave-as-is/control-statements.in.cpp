// Leave as is: control statements, "else" and "if" on lines of their own, case labels and blocks come out byte for byte.
void f(int c)
{
	if (a)   x();
	else
	    if (b) {  y(); }
	else /* c */
		if(c)z();
  switch(c){case 1:;
     default: ;}
    for(;;)  {  }
   {  do x(); while(y) ; }
}
