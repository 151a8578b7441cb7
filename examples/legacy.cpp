// A sample in an older style: C linkage, macros, operators, a message map,
// a function pointer and a region that must stay as it was written.
#include "stdafx.h"

#if 0
this block is switched off { and need not parse
#endif

extern "C" {
int legacy_init(void);
}

typedef int (*Handler)(int code, void* data);

enum Mode { MODE_IDLE = 0, MODE_BUSY = (1 << 2), MODE_DONE };

template<class T, int N = 4>
class Ring : public Base<T>
{
public:
    Ring() : m_head(0), m_size(N) {}
    T& operator[](int i) { return m_items[(m_head + i) % N]; }
    bool operator<(const Ring& other) const;
    operator bool() const { return m_size != 0; }

private:
    T m_items[N];
    int m_head, m_size;
    unsigned m_flags : 3;
};

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
    ON_WM_CREATE()
END_MESSAGE_MAP()

// TW-FORMAT-OFF: a table laid out by hand
static const int table[] = { 1,  2,  3,
                             10, 20, 30 };
// TW-FORMAT-ON

int dispatch(Mode mode, Handler handler)
{
    int result = 0;
    do
    {
        switch (mode)
        {
        case MODE_IDLE: result = handler(0, 0); break;
        default: return -1;
        }
    } while (result > 0);
    try { legacy_init(); }
    catch (...) { result = -2; }
    return result;
}
