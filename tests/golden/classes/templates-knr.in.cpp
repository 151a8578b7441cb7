// Template heads under K&R.
template<typename T,int N>class Array{T items[N];};
template<class T>
T maximum(T a,T b);
