// A comment region inside a message map: one piece, from BEGIN_MESSAGE_MAP to END_MESSAGE_MAP, passes as it stands.
BEGIN_MESSAGE_MAP(CView1, CView)
    // TW-FORMAT-OFF
	ON_WM_SIZE  ( )
    // TW-FORMAT-ON
	ON_WM_PAINT()
END_MESSAGE_MAP()
void CView1::OnPaint()
{
    if (a)
    {
        b();
    }
}
