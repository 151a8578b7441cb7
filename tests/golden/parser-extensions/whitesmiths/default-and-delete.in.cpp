// `= default` and `= delete` stand where `= 0` may.
Widget::Widget(const Widget&)  =  default;
void  f(double) = delete;
int   g(int  z)
{
    return  z;
}
