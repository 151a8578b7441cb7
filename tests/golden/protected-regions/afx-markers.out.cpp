// The class wizard's comment pairs ("//{{AFX_DATA_INIT" to "//}}AFX_DATA_INIT") fence a region like TW-FORMAT-OFF and TW-FORMAT-ON.
CMyDlg::CMyDlg(CWnd* pParent) : CDialog(CMyDlg::IDD, pParent)
{
    //{{AFX_DATA_INIT(CMyDlg)
	m_strName   = _T("");
	m_bCheck    = FALSE;
	//}}AFX_DATA_INIT
    if (pParent)
    {
        m_bCheck = TRUE;
    }
}
