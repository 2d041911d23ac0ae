#include "SystemWrapper.h"

#include "QtApps/Common/Logger/Log.h"

#include <QThread>

namespace wrappers {

SystemWrapper::SystemWrapper() {
    mClock.start();
}

std::uint64_t SystemWrapper::ElapsedMilliseconds() const {
    return static_cast<std::uint64_t>(mClock.elapsed());
}

void SystemWrapper::Delay(std::uint32_t milliseconds) {
    QThread::msleep(milliseconds);
}

// The library ends its texts with "\r\n" for a bare terminal; the log adds its own line ends.
void SystemWrapper::DebugPrint(const char* text) {
    BWL_LOG_INFO("DebugPrint", QString::fromUtf8(text).trimmed());
}

} // namespace wrappers
