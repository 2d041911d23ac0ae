#pragma once

#include "FrameLog.h"
#include "PumpLink.h"
#include "PumpModel.h"
#include "ReplayPump.h"
#include "SerialLine.h"
#include "SimulatorClock.h"
#include "SimulatorOptions.h"
#include "SubscriptionTable.h"
#include "UpdateScheduler.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace simulator {

class SimObject;
class FirmwareUpdateSimObject;

/// A whole simulated pump on one serial line: the line and the link, the pump model, the
/// protocol objects, the subscriptions and their updates, and the session with its watch for a
/// silent application.
class PumpSimulator : public QObject {
    Q_OBJECT

public:
    /// How long a restarting pump stays silent.
    static constexpr int kRestartQuietMs = 1000;
    /// The session ends when the application has sent nothing for this many times the value
    /// it passed when starting the session (1000 ms from the application: 3 s of silence).
    static constexpr int kSilenceFactor = 3;

    explicit PumpSimulator(const SimulatorOptions& options, QObject* parent = nullptr);
    ~PumpSimulator() override;

    /// Opens the frame log, reads the recording to replay (if any) and opens the line. For a
    /// pseudo-terminal `portName` is the slave path the application opens; for a device it is
    /// the device path.
    bool start(QString& portName, QString& error);
    /// Closes the line, as a pulled cable would.
    void unplug();

    PumpModel& model() { return mModel; }
    PumpLink& link() { return mLink; }
    SubscriptionTable& subscriptions() { return mSubscriptions; }
    const UpdateScheduler& scheduler() const { return mScheduler; }
    bool sessionActive() const { return mSessionActive; }
    QString statusText() const;

    /// Restarts the pump: session and subscriptions end, the link goes quiet for a moment, the
    /// machine comes back in its power-on state with its settings kept.
    void restartPump();

signals:
    void unplugged();
    void sessionChanged(bool active);

private:
    void registerObjects();
    void startSession(std::uint16_t value);
    void endSession(const QString& reason);
    void tick();
    void checkSilence();

    const SimulatorOptions mOptions;
    SimulatorClock mClock;
    FrameLog mFrameLog;
    PumpModel mModel;
    SerialLine mLine;
    PumpLink mLink;
    SubscriptionTable mSubscriptions;
    UpdateScheduler mScheduler;
    std::vector<std::unique_ptr<SimObject>> mObjects;
    FirmwareUpdateSimObject* mFirmwareUpdate = nullptr;
    std::unique_ptr<ReplayPump> mReplay; // --replay: answers in place of the objects

    QTimer mTickTimer;
    QElapsedTimer mTickClock;
    qint64 mLastTickNs = 0;
    QTimer mSilenceWatch;
    QTimer mUnplugTimer; // --unplug-after
    QElapsedTimer mSinceLastFrame;
    bool mSessionActive = false;
    int mSilenceLimitMs = 0;
};

} // namespace simulator
