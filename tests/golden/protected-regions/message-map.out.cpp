// A message map between BEGIN_MESSAGE_MAP and END_MESSAGE_MAP passes as it stands, tabs and all; the functions round it are laid out.
void CMyApp::OnIdle()
{
    if (x)
        y();
}
BEGIN_MESSAGE_MAP(CMyApp, CWinApp)
	//{{AFX_MSG_MAP(CMyApp)
	ON_COMMAND(ID_APP_ABOUT,   OnAppAbout)
	ON_COMMAND( ID_FILE_NEW , CWinApp::OnFileNew )
	//}}AFX_MSG_MAP
END_MESSAGE_MAP()
void CMyApp::OnAppAbout()
{
    if (a)
    {
        b();
    }
    else
    {
        c();
    }
}
