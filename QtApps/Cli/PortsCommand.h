#pragma once

#include "Command.h"

#include <QJsonArray>

namespace cli {

/// `ports`: every serial port the platform lists, and those given with --port, each probed as
/// the session's scan probes it (without starting a session), one line per port:
///
///     <port>: Protocol v<major.minor.patch>     a pump answered
///     <port>: no answer
///     <port>: cannot be opened                  (why, on standard error)
///
/// It ends with NoPump when no port answered.
class PortsCommand final : public Command {
    Q_OBJECT

public:
    explicit PortsCommand(CommandContext& context, QObject* parent = nullptr)
        : Command(QStringLiteral("ports"), context, parent) {}

protected:
    bool needsSession() const override { return false; }
    void run() override;

private:
    void onProbed(const QString& port, const QString& version, const QString& openFailure);
    void onFinished();

    QJsonArray mPorts;
    bool mAnswered = false;
};

} // namespace cli
