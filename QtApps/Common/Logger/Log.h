#pragma once

#include "Common/Protocol/SourcePath.h"

#include <QString>

#include <string_view>

namespace logger {

/// Severities. The link code uses two: Warn (150) for data read and write failures, Info (128)
/// for session and retry notices.
enum class Level { Debug, Info, Warn, Error };

/// Where a log line comes from: a source path below the source root without extension, a line
/// and a function label. Made from the label, it takes the file and line of the code that names
/// it, so every line points at the code that wrote it (GCC, Clang and MSVC provide the
/// builtins). A null label stands for a line that is not written.
class Site {
public:
    Site(const char* function, const char* file = __builtin_FILE(), int line = __builtin_LINE())
        : mPath(halyard::SourcePath(file))
        , mLine(line)
        , mFunction(function) {}

    /// A site outside the project's sources, such as Qt's own messages.
    static Site foreign(std::string_view path, int line, const char* function) {
        Site site(function);
        site.mPath = path;
        site.mLine = line;
        return site;
    }

    std::string_view path() const { return mPath; }
    int line() const { return mLine; }
    const char* function() const { return mFunction; }
    bool isWritten() const { return mFunction != nullptr; }

private:
    std::string_view mPath;
    int mLine;
    const char* mFunction;
};

/// Writes one log line: the site's path, line and function label, and the message. Callable
/// from any thread.
void write(Level level, const Site& site, const QString& message);

} // namespace logger

#define BWL_LOG(level, function, message) ::logger::write(level, ::logger::Site(function), message)
#define BWL_LOG_DEBUG(function, message) BWL_LOG(::logger::Level::Debug, function, message)
#define BWL_LOG_INFO(function, message) BWL_LOG(::logger::Level::Info, function, message)
#define BWL_LOG_WARN(function, message) BWL_LOG(::logger::Level::Warn, function, message)
#define BWL_LOG_ERROR(function, message) BWL_LOG(::logger::Level::Error, function, message)
