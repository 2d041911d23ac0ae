#pragma once

#include "QtApps/Common/Logger/Log.h"

#include <string_view>

namespace communication {

/// The catalogue file of a value, so that its log lines name it rather than the shared shapes.
struct ValueSource {
    std::string_view path;
    int line;
};

/// What a value logs when the link would not take one of its requests. The function label is
/// given, or else the text up to its first comma or colon ("getApplicationSpeed, can't send
/// GetApplicationSpeed" is logged under "getApplicationSpeed").
struct RefusedText {
    RefusedText(const char* messageText) : text(messageText) {}
    RefusedText(const char* functionLabel, const char* messageText)
        : label(functionLabel)
        , text(messageText) {}

    const char* label = nullptr;
    const char* text;
};

void logRefusedSend(const ValueSource& source, RefusedText refused);

} // namespace communication

#define BWL_VALUE_SOURCE                                                                           \
    ::communication::ValueSource {                                                                 \
        ::halyard::SourcePath(__FILE__), __LINE__                                                  \
    }
