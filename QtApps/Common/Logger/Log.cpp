#include "Log.h"

#include <cstdio>

namespace logger {

// Placeholder sink until the log4cxx backend is in place.
void write(Level level, std::string_view sourcePath, int line, const char* function,
           const QString& message)
{
    static const char* const kNames[] = {"DEBUG", "INFO", "WARN", "ERROR"};
    std::fprintf(stderr, "%s %.*s:%d %s - %s\n", kNames[static_cast<int>(level)],
                 static_cast<int>(sourcePath.size()), sourcePath.data(), line, function,
                 message.toUtf8().constData());
}

} // namespace logger
