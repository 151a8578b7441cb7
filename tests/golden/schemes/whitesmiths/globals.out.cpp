// This preview shows an overview of 
// the whole scheme. To change the
// layout of a particular element
// click on it's tab.
// Each option has context-help.
// Previews update in real-time!

class A : public B, C
    {
    public:
    A(int num);
    private:
    int m_Num;
    };

int main(void)
    {
    if (condition)
        {
        doSomething();
        }
    else
        {
        while (true)
            {
            doSomethingElse();
            }
        }

    return 0;
    }

namespace NS
    {
    enum Seasons
        {
        spring,
        summer,
        autumn,
        winter
        };
    }

char *userName = 0;
int count = 42;
int &countRef = count;

template <class T, int i>
class Buffer
    {
    Buffer();
    };
