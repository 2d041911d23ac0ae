#pragma once

#include "Common/Protocol/SourcePath.h"

#include <QString>

#include <string_view>

namespace logger {

/// Severities. The link code uses two: Warn (150) for data read and write failures, Info (128)
/// for session and retry notices.
enum class Level { Debug, Info, Warn, Error };

/// Writes one log line: the source path below the source root without extension, the line, the
/// function label and the message. Callable from any thread.
void write(Level level, std::string_view sourcePath, int line, const char* function,
           const QString& message);

} // namespace logger

#define BWL_LOG(level, function, message)                                                          \
    ::logger::write(level, ::halyard::SourcePath(__FILE__), __LINE__, function, message)
#define BWL_LOG_DEBUG(function, message) BWL_LOG(::logger::Level::Debug, function, message)
#define BWL_LOG_INFO(function, message) BWL_LOG(::logger::Level::Info, function, message)
#define BWL_LOG_WARN(function, message) BWL_LOG(::logger::Level::Warn, function, message)
#define BWL_LOG_ERROR(function, message) BWL_LOG(::logger::Level::Error, function, message)
