// Brace initialisers in data declarations and member initialisers.
int x{0};
std::vector<int> v{1, 2};
Widget::Widget(int  a) : m_x{a}, m_y(2)
{
    run(a);
}
