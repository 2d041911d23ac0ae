#include "SimulatorProcess.h"

#include <csignal>

namespace testsupport {

SimulatorProcess::~SimulatorProcess() {
    if (mProcess.state() != QProcess::NotRunning) {
        mProcess.kill();
        mProcess.waitForFinished(2000);
    }
}

QString SimulatorProcess::start(const QStringList& arguments) {
    mProcess.setProgram(QStringLiteral(PUMP_SIMULATOR_PATH));
    mProcess.setArguments(arguments);
    mProcess.start();
    if (!mProcess.waitForStarted(5000)) {
        return {};
    }
    while (!mProcess.canReadLine()) {
        if (!mProcess.waitForReadyRead(5000)) {
            return {};
        }
    }
    return QString::fromLocal8Bit(mProcess.readLine()).trimmed();
}

bool SimulatorProcess::interrupt(int timeoutMs) {
    ::kill(static_cast<pid_t>(mProcess.processId()), SIGINT);
    return mProcess.waitForFinished(timeoutMs);
}

} // namespace testsupport
