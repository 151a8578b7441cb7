// A head that does not begin its line ("public: class A", "}; enum E"): its body indents from that line's indent, so braces and content agree.
class K
{
public: class Inner
    {
        int a;
    };
    enum
    {
        A,
        B
    }; enum class E : int
    {
        X = 1
    };
};
