#pragma once

#include "Common/Protocol/SemanticVersion.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace communication {
class ProtocolCommsInterface;
namespace objects {
class ProtocolObject;
}
} // namespace communication

namespace cli {

/// Asks each port in turn whether a pump answers on it, as the session's scan probes a port:
/// open it, send the version request, wait up to PumpSession::kProbeWaitMs for the answer,
/// close it. It never starts a session. Lives on the link's thread, beside the comms object it
/// drives (build it there, for instance in a call queued to the comms object).
class PortProbe final : public QObject {
    Q_OBJECT

public:
    PortProbe(communication::ProtocolCommsInterface& comms, QStringList ports,
              QObject* parent = nullptr);

    /// Probes the ports one after the other; `probed` for each, then `finished`.
    void start();

signals:
    /// `version` is the protocol version a pump answered with ("1.0.0"), empty for none;
    /// `openFailure` says why the port could not be opened, empty when it could.
    void probed(QString port, QString version, QString openFailure);
    void finished();

private:
    void probeNext();
    void onVersion(halyard::SemanticVersion version);
    void endProbe(const QString& version);

    communication::ProtocolCommsInterface& mComms;
    communication::objects::ProtocolObject& mProtocolObject;
    QStringList mPorts;
    qsizetype mNext = 0;
    QString mCurrent;
    QString mOpenFailure;
    bool mWaiting = false;
    QTimer mWait;
};

} // namespace cli
