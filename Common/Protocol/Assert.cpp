#include "Assert.h"

#include <stdexcept>

namespace halyard {

std::string AssertText(const char* condition, std::string_view sourcePath, int line) {
    std::string text = "ASSERT FAILED: \"";
    text += condition;
    text += "\" in ";
    text += sourcePath;
    text += ", Line ";
    text += std::to_string(line);
    return text;
}

void AssertFailed(const char* condition, std::string_view sourcePath, int line) {
    throw std::runtime_error(AssertText(condition, sourcePath, line));
}

} // namespace halyard
