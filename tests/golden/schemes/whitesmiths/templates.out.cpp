template <class T, int i>
class Buffer
    {
    Buffer();
    };

template <class T, class C>
int compare(const String<T> &str1, const String<T> &str2)
    {
    }

namespace Utils
    {
    template <class H, class T>
    struct TypeList
        {
        typedef H Head;
        typedef T Tail;
        };
    }

template <class Type>
class Stack
    {
    public:
    Stack();
    private:
    int top;
    };
