// A ">>" that closes a default argument's list and the template head stays one token.
template <class T,class = std::enable_if_t<std::is_same<T, int>::value>>
void f(T t);
template<class T, class U = X<T> >
class Y;
