// Words between a parameter list and a body belong to the function's head.
auto size(int  n) noexcept -> int { return n; }
void Widget::paint(int x) const OVERRIDE
{
    draw( x );
}
Widget::Widget() noexcept : m_id(next())
{
    init();
}
