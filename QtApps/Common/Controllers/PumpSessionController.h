#pragma once

#include "QmlSingleton.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace communication {

class PumpSession;

/// The connection state for the screens ("cpp.PumpSessionController"). The window emits
/// `startScanning()` once it exists and `disconnectPump()` while it closes; both reach the pump
/// session on the comms thread as queued calls. The session's reports come back the same way.
class PumpSessionController final : public QObject, public QmlSingleton<PumpSessionController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool pumpConnected READ pumpConnected NOTIFY connectedStatusChanged)
    Q_PROPERTY(QString sessionStatus READ sessionStatus NOTIFY sessionStatusChanged)
    /// Why the ports cannot be opened (no such port, no permission with the command that gives
    /// it, in use by another program); empty while they open.
    Q_PROPERTY(QString portProblem READ portProblem NOTIFY portProblemChanged)

public:
    explicit PumpSessionController(PumpSession& session, QObject* parent = nullptr);

    bool pumpConnected() const { return mPumpConnected; }
    QString sessionStatus() const { return mSessionStatus; }
    QString portProblem() const { return mPortProblem; }

signals:
    void startScanning();
    void disconnectPump();
    void connectedStatusChanged();
    void sessionStatusChanged();
    void portProblemChanged();

private slots:
    void pumpConnectionChanged(bool connected);
    void pumpConnectionStatusChanged(QString status);
    void sessionPortProblemChanged(QString problem);

private:
    bool mPumpConnected = false;
    QString mSessionStatus;
    QString mPortProblem;
};

} // namespace communication
