#include "PumpSessionController.h"

#include "QtApps/Common/Model/PumpSession.h"

namespace communication {

// Queued in both directions: the session lives on the comms thread (and in tests may not have
// moved there yet, which must not turn these into direct calls from the screens).
PumpSessionController::PumpSessionController(PumpSession& session, QObject* parent)
    : QObject(parent) {
    connect(this, &PumpSessionController::startScanning, &session, &PumpSession::startScanning,
            Qt::QueuedConnection);
    connect(this, &PumpSessionController::disconnectPump, &session, &PumpSession::disconnectPump,
            Qt::QueuedConnection);
    connect(&session, &PumpSession::pumpConnectionChanged, this,
            &PumpSessionController::pumpConnectionChanged, Qt::QueuedConnection);
    connect(&session, &PumpSession::pumpConnectionStatus, this,
            &PumpSessionController::pumpConnectionStatusChanged, Qt::QueuedConnection);
    connect(&session, &PumpSession::portProblemChanged, this,
            &PumpSessionController::sessionPortProblemChanged, Qt::QueuedConnection);
}

void PumpSessionController::pumpConnectionChanged(bool connected) {
    mPumpConnected = connected;
    emit connectedStatusChanged();
}

void PumpSessionController::pumpConnectionStatusChanged(QString status) {
    mSessionStatus = std::move(status);
    emit sessionStatusChanged();
}

void PumpSessionController::sessionPortProblemChanged(QString problem) {
    mPortProblem = std::move(problem);
    emit portProblemChanged();
}

} // namespace communication
