#include "PumpSimulator.h"

#include "objects/AnalogCalibrationSimObject.h"
#include "objects/AnalogFilterSimObject.h"
#include "objects/AnalogInputSimObject.h"
#include "objects/DeviceSimObject.h"
#include "objects/FirmwareUpdateSimObject.h"
#include "objects/LoggerSimObject.h"
#include "objects/MotorSimObject.h"
#include "objects/MotorStepperSimObject.h"
#include "objects/NetworkSimObject.h"
#include "objects/OemDeviceSimObject.h"
#include "objects/PrimeSimObject.h"
#include "objects/PumpSimObject.h"
#include "objects/SessionSimObject.h"
#include "objects/SpeedCommanderSimObject.h"

#include <QDebug>

namespace simulator {

PumpSimulator::PumpSimulator(const SimulatorOptions& options, QObject* parent)
    : QObject(parent)
    , mOptions(options)
    , mModel(mOptions, mClock)
    , mLine(mOptions.paceAtLineRate)
    , mLink(mOptions, mClock, mLine, mFrameLog)
    , mSubscriptions(static_cast<std::size_t>(mOptions.maxSubscriptions))
    , mScheduler(mSubscriptions, mClock) {
    registerObjects();

    mTickTimer.setInterval(PumpModel::kTickMs);
    connect(&mTickTimer, &QTimer::timeout, this, &PumpSimulator::tick);
    mSilenceWatch.setInterval(50);
    connect(&mSilenceWatch, &QTimer::timeout, this, &PumpSimulator::checkSilence);
    mUnplugTimer.setSingleShot(true);
    connect(&mUnplugTimer, &QTimer::timeout, this, &PumpSimulator::unplug);
    connect(&mLink, &PumpLink::frameReceived, this, [this]() { mSinceLastFrame.restart(); });
    connect(&mLine, &SerialLine::lost, this, [this](const QString& reason) {
        qWarning("Line lost: %s", qPrintable(reason));
        unplug();
    });
    mSinceLastFrame.start();
}

PumpSimulator::~PumpSimulator() = default;

void PumpSimulator::registerObjects() {
    const SimObject::Context context{mLink.protocol(), mSubscriptions, mClock};
    mObjects.push_back(std::make_unique<SessionSimObject>(
        context, mOptions.protocolVersion,
        SessionSimObject::Callbacks{[this](std::uint16_t value) { startSession(value); },
                                    [this]() { endSession(QStringLiteral("Session stopped")); }}));
    mObjects.push_back(
        std::make_unique<DeviceSimObject>(context, mModel, [this]() { restartPump(); }));
    mObjects.push_back(std::make_unique<OemDeviceSimObject>(context, mModel));
    auto firmwareUpdate = std::make_unique<FirmwareUpdateSimObject>(
        context, mModel, mOptions.firmwareFault, mOptions.paceAtLineRate);
    mFirmwareUpdate = firmwareUpdate.get();
    mObjects.push_back(std::move(firmwareUpdate));
    mObjects.push_back(std::make_unique<PumpSimObject>(context, mModel));
    mObjects.push_back(std::make_unique<PrimeSimObject>(context, mModel));
    mObjects.push_back(std::make_unique<MotorSimObject>(context, mModel));
    if (mOptions.isStepper()) {
        mObjects.push_back(std::make_unique<MotorStepperSimObject>(context, mModel));
    }
    mObjects.push_back(std::make_unique<AnalogInputSimObject>(context, mModel));
    mObjects.push_back(std::make_unique<AnalogCalibrationSimObject>(context, mModel));
    mObjects.push_back(std::make_unique<AnalogFilterSimObject>(context, mModel));
    mObjects.push_back(std::make_unique<SpeedCommanderSimObject>(context, mModel));
    if (mOptions.isNetwork()) {
        mObjects.push_back(std::make_unique<NetworkSimObject>(context, mModel));
    }
    mObjects.push_back(std::make_unique<LoggerSimObject>(context, mModel));

    for (const auto& object : mObjects) {
        mLink.protocol().RegisterMessageHandler(object.get());
        mScheduler.addObject(object.get());
    }
}

bool PumpSimulator::start(QString& portName, QString& error) {
    if (!mFrameLog.open(mOptions.frameLogPath, error)) {
        return false;
    }
    if (!mOptions.replayPath.isEmpty()) {
        auto script = ReplayScript::load(mOptions.replayPath, error);
        if (!script) {
            error = QStringLiteral("--replay: %1").arg(error);
            return false;
        }
        qInfo("Replaying %s: %d answers to %d kinds of request, %d recorded sessions",
              qPrintable(mOptions.replayPath), script->answerCount(), script->requestKinds(),
              static_cast<int>(script->sessions().size()));
        mReplay = std::make_unique<ReplayPump>(std::move(*script), mLink);
        mLink.setMessageHandler(
            [this](const QByteArray& message) { mReplay->handleMessage(message); });
    }
    const bool opened = mOptions.usePty ? mLine.openPty(portName, error)
                                        : mLine.openDevice(mOptions.devicePath, error);
    if (!opened) {
        return false;
    }
    if (!mOptions.usePty) {
        portName = mOptions.devicePath;
    }
    mTickClock.start();
    mTickTimer.start();
    mSilenceWatch.start();
    if (mOptions.unplugAfterMs >= 0) {
        mUnplugTimer.start(mOptions.unplugAfterMs);
    }
    return true;
}

void PumpSimulator::unplug() {
    if (!mLine.isOpen()) {
        return;
    }
    endSession(QStringLiteral("Session ended, line closed"));
    mLine.close();
    qInfo("Line closed");
    emit unplugged();
}

void PumpSimulator::tick() {
    // Advance by the time that really passed, so ramps run at their true rate under load.
    // Whole milliseconds only; the remainder is carried into the next tick.
    const qint64 elapsedMs = (mTickClock.nsecsElapsed() - mLastTickNs) / 1000000;
    if (elapsedMs <= 0) {
        return;
    }
    mLastTickNs += elapsedMs * 1000000;
    mModel.advance(static_cast<int>(qMin<qint64>(elapsedMs, 1000)));
}

void PumpSimulator::startSession(std::uint16_t value) {
    // A new session starts from a clean slate: the application subscribes again.
    mSubscriptions.clear();
    mSilenceLimitMs = kSilenceFactor * value;
    mSinceLastFrame.restart();
    if (!mSessionActive) {
        mSessionActive = true;
        mModel.logEvent(QStringLiteral("Session started"));
        qInfo("Session started");
        emit sessionChanged(true);
    }
    mScheduler.setStreaming(true);
}

void PumpSimulator::endSession(const QString& reason) {
    mScheduler.setStreaming(false);
    mSubscriptions.clear();
    if (mSessionActive) {
        mSessionActive = false;
        mModel.logEvent(reason);
        qInfo("%s", qPrintable(reason));
        emit sessionChanged(false);
    }
}

void PumpSimulator::checkSilence() {
    if (mSessionActive && mSilenceLimitMs > 0 && mSinceLastFrame.elapsed() > mSilenceLimitMs) {
        endSession(QStringLiteral("Session timed out"));
    }
}

void PumpSimulator::restartPump() {
    mModel.logEvent(QStringLiteral("Restart"));
    endSession(QStringLiteral("Session ended by restart"));
    mLink.goQuietFor(kRestartQuietMs);
    mFirmwareUpdate->abandon();
    mModel.restart();
    qInfo("Pump restarting, quiet for %d ms", kRestartQuietMs);
}

QString PumpSimulator::statusText() const {
    const PumpLink::Counters& counters = mLink.counters();
    quint64 missed = 0;
    for (const auto& object : mObjects) {
        missed += object->missedUpdates();
    }
    return QStringLiteral("session %1, %2 subscriptions, %3 updates sent (%4 unacknowledged), "
                          "frames in %5 (bad %6), out %7, injected faults %8, stalled %9")
        .arg(mSessionActive ? QStringLiteral("open") : QStringLiteral("closed"))
        .arg(mSubscriptions.size())
        .arg(mScheduler.updatesSent())
        .arg(missed)
        .arg(counters.framesIn)
        .arg(counters.badFramesIn)
        .arg(counters.framesOut)
        .arg(counters.injectedFaults)
        .arg(counters.stalledFrames);
}

} // namespace simulator
