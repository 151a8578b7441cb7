// A block comment over several lines that starts in the gap between two parameters keeps its later lines where they are, so a second run agrees.
namespace N {
typedef int (*cb)(int *a,    /* one */
                  void *b, /* two
                              three */
                  int c);
}
