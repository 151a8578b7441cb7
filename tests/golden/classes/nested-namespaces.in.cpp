// Nested namespaces indent by one step each; an anonymous namespace too.
namespace outer{namespace inner {
int x;
}
namespace {
    static int hidden;
}
}
