// Template heads: parameters spaced as a list, the declaration on the next line.
template <typename T, int N>
class Array
{
    T items[N];
};
template <class T>
T maximum(T a, T b);
