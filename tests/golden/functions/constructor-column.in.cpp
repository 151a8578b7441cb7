// A constructor without return type takes its column from its name, here the left margin's: its body indents from there.
Queue::Queue(int size) : m_size(size) {
reserve(size);
}
