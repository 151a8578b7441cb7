// Declarations behind a template head that do not line up under it (an alias, a function pointer) end the head cleanly.
namespace N
{
    template <class T> using Ptr = T*;
    int after;
}
