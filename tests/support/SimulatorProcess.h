#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace testsupport {

/// The real pump-simulator executable, started as a script would start it.
class SimulatorProcess {
public:
    ~SimulatorProcess();

    /// Starts the simulator with `arguments` and waits for the port path on its first stdout
    /// line. Returns the path, or an empty string.
    QString start(const QStringList& arguments);
    /// Sends SIGINT (Ctrl-C) and waits for the end.
    bool interrupt(int timeoutMs = 5000);

    QProcess& process() { return mProcess; }

private:
    QProcess mProcess;
};

} // namespace testsupport
