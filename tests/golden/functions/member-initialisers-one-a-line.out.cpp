// Member initialisers one a line under the first, the colon on a line of its own.
Widget::Widget(int w, int h)
    : m_width(w),
      m_height(h),
      m_visible(false)
{
    show();
}
