// Taking the delimiters off comment text.
#include "Cpp_CommentText.h"

#include "Varnel_Text.h"

namespace Cpp {

bool stripCommentDelimiters(std::string& text)
{
    text = std::string(Varnel::trimLeft(text));
    if (text.size() < 2)
        return false;
    if (text.compare(0, 2, "//") == 0) {
        text.erase(0, 2);
        return true;
    }
    if (text.compare(0, 2, "/*") == 0) {
        if (text.size() < 4 || text.compare(text.size() - 2, 2, "*/") != 0)
            return false;
        text = text.substr(2, text.size() - 4);
        return true;
    }
    return false;
}

} // namespace Cpp
