#include "LogCapture.h"

#include <QFile>

#include <log4cxx/fileappender.h>
#include <log4cxx/logger.h>
#include <log4cxx/patternlayout.h>

namespace {
const log4cxx::LogString kAppenderName = LOG4CXX_STR("values-test-capture");
}

LogCapture::LogCapture() : mPath(mDirectory.filePath(QStringLiteral("log.txt"))) {
    auto layout = std::make_shared<log4cxx::PatternLayout>(LOG4CXX_STR("%m%n"));
    auto appender = std::make_shared<log4cxx::FileAppender>(
        layout, log4cxx::LogString(mPath.toStdString()), false);
    appender->setName(kAppenderName);
    log4cxx::Logger::getRootLogger()->addAppender(appender);
}

LogCapture::~LogCapture() {
    log4cxx::Logger::getRootLogger()->removeAppender(kAppenderName);
}

QStringList LogCapture::lines() const {
    QFile file(mPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

int LogCapture::count(const QString& text) const {
    return static_cast<int>(lines().filter(text).size());
}
