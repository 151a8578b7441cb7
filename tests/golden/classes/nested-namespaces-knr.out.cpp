// Nested namespaces under K&R: braces on the head's line.
namespace outer {
    namespace inner {
        int x;
    }
    namespace {
        static int hidden;
    }
}
