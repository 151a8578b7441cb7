// Attributes and alignas stand before declarations and keep them functions, data or classes.
[[nodiscard]] static int count(const char* s);
[[deprecated("use load() instead")]]
void read_file(const char* path)
{
    if (path != nullptr) {
        open(path);
    }
}
class Buffer {
    [[nodiscard]] bool empty() const
    {
        return m_size == 0;
    }
    alignas(16) char m_data[64];
};
struct alignas(8) Pair {
    int a;
};
int f(int n)
{
    if (n != int{}) {
        return n;
    }
    return 0;
}
