// Binary operators take the operator gap; a unary one after an operator, "(", "return" or at the start hugs its operand.
void f()
{
x=a+b*c;
y = - z;
p=*q;
r = a*-b;
n = !done && (-k > 0);
return -x;
}
