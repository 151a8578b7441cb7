// A macro line without a semicolon ends before a directive.
HEADERS_BEGIN
#include <string>
HEADERS_END
int f(int  y)
{
    return  y;
}
G_END_DECLS
