#pragma once

#include "SourcePath.h"

#include <string>

namespace halyard {

/// Builds the text of a failed assertion:
/// ASSERT FAILED: "condition" in Common/Protocol/Protocol, Line 27
std::string AssertText(const char* condition, std::string_view sourcePath, int line);

/// Raises the assertion error. The protocol library reports every runtime condition as a result
/// code; this is only for programming faults (a caller that breaks a contract).
[[noreturn]] void AssertFailed(const char* condition, std::string_view sourcePath, int line);

} // namespace halyard

#define HALYARD_ASSERT(condition)                                                                  \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            ::halyard::AssertFailed(#condition, ::halyard::SourcePath(__FILE__), __LINE__);        \
        }                                                                                          \
    } while (false)
