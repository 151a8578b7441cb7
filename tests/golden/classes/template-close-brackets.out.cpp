// WS_BEFORE_TP_CLOSE_BRACKET "": the last two brackets of "X<T> >" keep one blank, so they never become ">>".
template <class T, class U = X<T> >
class Pair;
template <class T>
void f(T t);
