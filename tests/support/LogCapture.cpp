#include "LogCapture.h"

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/logger.h>
#include <log4cxx/spi/loggingevent.h>

#include <mutex>

namespace testsupport {

// The object macros of log4cxx name its types unqualified.
using namespace log4cxx;

// The lock lives here, in test code: the application's logging path takes none of its own.
class CaptureAppender final : public log4cxx::AppenderSkeleton {
public:
    DECLARE_LOG4CXX_OBJECT(CaptureAppender)
    BEGIN_LOG4CXX_CAST_MAP()
    LOG4CXX_CAST_ENTRY(CaptureAppender)
    LOG4CXX_CAST_ENTRY_CHAIN(AppenderSkeleton)
    END_LOG4CXX_CAST_MAP()

    void append(const log4cxx::spi::LoggingEventPtr& event, log4cxx::helpers::Pool&) override {
        const QString line = QString::fromStdString(event->getLevel()->toString()) + ' ' +
                             QString::fromStdString(event->getRenderedMessage());
        std::lock_guard<std::mutex> guard(mMutex);
        mLines << line;
    }
    void close() override {}
    bool requiresLayout() const override { return false; }

    QStringList lines() const {
        std::lock_guard<std::mutex> guard(mMutex);
        return mLines;
    }
    void clear() {
        std::lock_guard<std::mutex> guard(mMutex);
        mLines.clear();
    }

private:
    mutable std::mutex mMutex;
    QStringList mLines;
};

IMPLEMENT_LOG4CXX_OBJECT(CaptureAppender)

LogCapture::LogCapture() : mAppender(std::make_shared<CaptureAppender>()) {
    ::log4cxx::Logger::getRootLogger()->addAppender(mAppender);
}

LogCapture::~LogCapture() {
    ::log4cxx::Logger::getRootLogger()->removeAppender(mAppender);
}

QStringList LogCapture::lines() const {
    return mAppender->lines();
}

int LogCapture::count(const QString& text) const {
    int n = 0;
    for (const QString& line : mAppender->lines()) {
        n += line.contains(text) ? 1 : 0;
    }
    return n;
}

void LogCapture::clear() {
    mAppender->clear();
}

} // namespace testsupport
