// INDENT_ACCESS_SPEC_LABEL indents labels from the class's column; WS_BEFORE_ACCESS_SPECS goes in front of a label, but not between a comment line and the label it heads.
namespace N {
class A {
public:
int a; /* end of the public part */ protected:
int b;
// the private part
private:
int c;
};
}
