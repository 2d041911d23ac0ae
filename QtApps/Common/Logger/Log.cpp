#include "Log.h"

#include <log4cxx/logger.h>

namespace logger {

namespace {

log4cxx::LevelPtr ToLog4cxx(Level level) {
    switch (level) {
    case Level::Debug:
        return log4cxx::Level::getDebug();
    case Level::Info:
        return log4cxx::Level::getInfo();
    case Level::Warn:
        return log4cxx::Level::getWarn();
    case Level::Error:
        break;
    }
    return log4cxx::Level::getError();
}

// "QtApps/Common/Model/PumpSession" logs as "QtApps.Common.Model.PumpSession", so a properties
// file can set levels per folder the log4j way.
std::string LoggerName(std::string_view sourcePath) {
    std::string name(sourcePath);
    for (char& c : name) {
        if (c == '/' || c == '\\') {
            c = '.';
        }
    }
    return name.empty() ? std::string("BrackwaterLink") : name;
}

} // namespace

// log4cxx serialises appenders internally; callers on any thread need no lock of their own.
void write(Level level, const Site& site, const QString& message) {
    if (!site.isWritten()) {
        return;
    }
    const log4cxx::LoggerPtr target = log4cxx::Logger::getLogger(LoggerName(site.path()));
    const log4cxx::LevelPtr log4cxxLevel = ToLog4cxx(level);
    if (!target->isEnabledFor(log4cxxLevel)) {
        return;
    }
    std::string text(site.path());
    text += ':';
    text += std::to_string(site.line());
    text += ' ';
    text += site.function();
    text += " - ";
    text += message.toStdString();
    target->forcedLog(log4cxxLevel, text);
}

} // namespace logger
