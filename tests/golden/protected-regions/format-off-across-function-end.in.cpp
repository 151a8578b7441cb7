// A region that begins in a function body and ends behind the function: the statements in it pass as they stand; the function keeps its closing brace, laid out.
void f()
{
  if(a){x=1;}
  // TW-FORMAT-OFF
  if(a){x=1;}
  while(b)   b--;
      }
void g(){ if(a)   b(); }
// TW-FORMAT-ON
void h(){if(a){x=1;}}
