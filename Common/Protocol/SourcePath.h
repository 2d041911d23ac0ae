#pragma once

#include <string_view>

#ifndef HALYARD_SOURCE_ROOT
#define HALYARD_SOURCE_ROOT ""
#endif

namespace halyard {

/// The path of a source file below the source root, without its extension, as log lines and
/// assertion texts name it: "/src/bwl/Common/Protocol/Protocol.cpp" gives
/// "Common/Protocol/Protocol". Evaluated at compile time when given __FILE__.
constexpr std::string_view SourcePath(std::string_view file) {
    constexpr std::string_view root{HALYARD_SOURCE_ROOT};
    if (!root.empty() && file.substr(0, root.size()) == root) {
        file.remove_prefix(root.size());
    }
    const auto slash = file.find_last_of("/\\");
    const auto dot = file.find_last_of('.');
    if (dot != std::string_view::npos && (slash == std::string_view::npos || dot > slash)) {
        file = file.substr(0, dot);
    }
    return file;
}

} // namespace halyard
