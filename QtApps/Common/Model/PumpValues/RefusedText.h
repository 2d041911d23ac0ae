#pragma once

#include "QtApps/Common/Logger/Log.h"

namespace communication {

/// What a value logs when the link would not take one of its requests. The line points at the
/// code that writes the text (a value's catalogue entry). The function label is given, or else
/// it is the text up to its first comma or colon ("getApplicationSpeed, can't send
/// GetApplicationSpeed" is logged under "getApplicationSpeed").
class RefusedText {
public:
    RefusedText(const char* messageText, const char* file = __builtin_FILE(),
                int line = __builtin_LINE())
        : RefusedText(nullptr, messageText, file, line) {}
    static RefusedText withLabel(const char* functionLabel, const char* messageText,
                                 const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
        return {functionLabel, messageText, file, line};
    }

    /// Writes the line, as a warning.
    void log() const;

private:
    RefusedText(const char* functionLabel, const char* messageText, const char* file, int line)
        : mLabel(functionLabel)
        , mText(messageText)
        , mFile(file)
        , mLine(line) {}

    const char* mLabel;
    const char* mText;
    const char* mFile;
    int mLine;
};

} // namespace communication
