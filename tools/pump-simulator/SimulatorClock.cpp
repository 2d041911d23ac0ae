#include "SimulatorClock.h"

#include <QDebug>
#include <QThread>

namespace simulator {

SimulatorClock::SimulatorClock() {
    mTimer.start();
}

std::uint64_t SimulatorClock::ElapsedMilliseconds() const {
    return static_cast<std::uint64_t>(mTimer.elapsed());
}

void SimulatorClock::Delay(std::uint32_t milliseconds) {
    QThread::msleep(milliseconds);
}

void SimulatorClock::DebugPrint(const char* text) {
    qWarning().noquote() << QString::fromLatin1(text).trimmed();
}

} // namespace simulator
