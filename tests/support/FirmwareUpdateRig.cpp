#include "FirmwareUpdateRig.h"

#include "QtApps/Common/Controllers/FirmwareUpdateController.h"
#include "QtApps/Common/Controllers/PumpDetailsController.h"
#include "QtApps/Common/Controllers/PumpSessionController.h"
#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Model/FirmwareUpdate/MiniZipReader.h"
#include "QtApps/Common/Model/PumpSession.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QEventLoop>
#include <QTimer>

namespace testsupport {

namespace {
constexpr int kConnectTimeoutMs = 10000;
} // namespace

FirmwareUpdateRig::FirmwareUpdateRig(const QStringList& simulatorArguments)
    : mArguments(simulatorArguments) {
    mThread.setObjectName(QStringLiteral("ProtocolCommsThread"));
}

FirmwareUpdateRig::~FirmwareUpdateRig() {
    mController.reset();
    mDetails.reset();
    mSessionController.reset();
    if (mComms != nullptr) {
        // Deleted on its own thread, as at the application's exit.
        QMetaObject::invokeMethod(mComms, [comms = mComms] { comms->deleteLater(); });
    }
    mThread.quit();
    mThread.wait();
}

bool FirmwareUpdateRig::start(QString& error) {
    mSimulator.process().setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString port = mSimulator.start(
        QStringList{QStringLiteral("--pty"), QStringLiteral("--no-console")} + mArguments);
    if (port.isEmpty()) {
        error = QStringLiteral("the pump simulator did not start");
        return false;
    }
    // In the order start-up builds them, all before the link moves to its thread.
    mComms = new communication::ProtocolComms(mRequestLog);
    mValues = new communication::PumpValues(*mComms);
    mReader = new common::MiniZipReader(mComms);
    mPumpSession = new communication::PumpSession(*mComms, QStringList{port}, mComms);
    mSessionController = std::make_unique<communication::PumpSessionController>(*mPumpSession);
    mDetails = std::make_unique<communication::PumpDetailsController>(*mValues, *mPumpSession);
    mController = std::make_unique<firmwareUpdate::FirmwareUpdateController>(
        *mReader, mComms->protocolObjects(), *mValues, *mSessionController, *mDetails);
    mComms->moveToThread(&mThread);
    mThread.start();

    QEventLoop waiting;
    QObject::connect(mSessionController.get(),
                     &communication::PumpSessionController::connectedStatusChanged, &waiting,
                     &QEventLoop::quit);
    QTimer::singleShot(kConnectTimeoutMs, &waiting, &QEventLoop::quit);
    emit mSessionController->startScanning();
    waiting.exec();
    if (!mSessionController->pumpConnected()) {
        error = QStringLiteral("no session with the simulated pump on %1").arg(port);
        return false;
    }
    return true;
}

} // namespace testsupport
