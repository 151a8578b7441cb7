// An initialiser spanning lines: its later lines indent from the declaration by INDENT_DD_CONTENT.
namespace N {
const char* names[] = { "one",
"two",
"three" };
}
