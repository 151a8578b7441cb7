// A typedef'd struct and a class nested in a class: each body indents from its own head.
typedef struct
{
    int x; int y;
} Point;
class Outer
{
public:
    class Inner
    {
        int a;
    };
    Inner inner;
};
