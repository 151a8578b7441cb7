// A class with no body: the head is copied, the indent stack stays balanced, and the data declaration behind it is aligned like others.
namespace N
{
    class   Forward ;
    int     a;
    long    count;
}
