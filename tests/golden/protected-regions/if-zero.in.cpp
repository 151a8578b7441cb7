// "#if 0" to "#endif", however ungrammatical, passes as it stands, nested conditionals included; the code round it is laid out.
#if 0
this is { not C ++ (((
#if 1
  neither }} is this
#endif
#endif
void f()
{
  if(a){x=1;}
#if 0
    if(a   {
#endif
  while(b){b--;}
}
