// "template <class T> class C { };": the body lines up under "template", not under "class".
namespace N {
template<class T> class C { T value; };
}
