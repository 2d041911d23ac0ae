#pragma once

#include "CommandContext.h"
#include "ExitStatus.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

namespace communication {
class ControllerRegistry;
class PumpDetailsController;
class PumpSessionController;
class ProtocolObjectContainer;
class PumpValues;
} // namespace communication
namespace models {
class ModelRegistry;
}

namespace cli {

class CliOutput;
struct CliInvocation;

/// The base of every command: the session with the pump around the command's own work, and its
/// end. start() scans for the pump as the window does (the ports of --port, or every listed
/// one), and once the pump is connected and has told its identity, calls run(). A pump that
/// does not get that far within --timeout ends the command with NoPump. Whatever the outcome,
/// the command stops the session before it reports finished, as the window does when it closes.
///
/// Commands drive the controllers and models from the main thread through their public members,
/// as the screens do; the link and the values stay on their own thread.
class Command : public QObject {
    Q_OBJECT

public:
    /// How long a stop-session request may take before the command ends anyway (three
    /// unanswered tries of the session's own rule fit in it).
    static constexpr int kSessionStopLimitMs = 2000;
    /// How long the pump may take to answer a request of a command's own (the values retry
    /// three times within it).
    static constexpr int kAnswerLimitMs = 5000;

    Command(const QString& name, CommandContext& context, QObject* parent = nullptr);

    /// Starts the command (connecting to the pump first when it needs one).
    void start();
    /// Ctrl-C or SIGTERM: the command ends Interrupted, stopping the session first.
    virtual void interrupt();

signals:
    /// The command has ended and the session is stopped: the program may exit with `exitStatus`.
    void finished(int exitStatus);

protected:
    /// Whether the command works through a session with the pump (all but `ports`).
    virtual bool needsSession() const { return true; }
    /// The command's own work: called once, when the pump is connected and its details have
    /// arrived (at once for a command without a session). It ends with succeed(), fail() or
    /// finish().
    virtual void run() = 0;
    /// The session ended while the command ran. By default the command fails with the session's
    /// "Disconnected." text.
    virtual void onSessionLost();
    /// The session is open again after onSessionLost (a pump that restarted).
    virtual void onSessionBack() {}

    void succeed() { finish(ExitStatus::Success); }
    /// Ends with Failed; `text` goes to standard error (and into the JSON document).
    void fail(const QString& text);
    void finish(ExitStatus status);
    bool finishing() const { return mFinishing; }

    /// Fails with "Pump response timeout" unless answered() comes within `ms`; each call starts
    /// the wait again.
    void expectAnswerWithin(int ms = kAnswerLimitMs);
    void answered() { mAnswerTimer.stop(); }

    const CliInvocation& invocation() const { return mContext.invocation; }
    common::ApplicationCore& core() const { return mContext.core; }
    CliOutput& output() const { return mContext.output; }
    communication::ControllerRegistry& controllers() const;
    models::ModelRegistry& models() const;
    communication::PumpValues& values() const;
    communication::PumpDetailsController& details() const;
    /// The link's proxies, whose signals a command may follow (queued: they live on the link's
    /// thread).
    communication::ProtocolObjectContainer& protocolObjects() const;

private:
    void onConnectionChanged();
    void onDetailsChanged();
    void runWhenReady();
    void onNoPump();
    void onPortOpenFailed(const QString& portName, const QString& reason);
    void stopSessionThenEnd();
    void end();

    QString mName;
    CommandContext& mContext;
    communication::PumpSessionController& mSession;
    QTimer mConnectTimer;
    QTimer mAnswerTimer;
    QTimer mStopTimer;
    bool mRunning = false;
    bool mSessionLost = false;
    bool mFinishing = false;
    bool mEnded = false;
    ExitStatus mStatus = ExitStatus::Success;
    QSet<QString> mReportedPorts;
};

} // namespace cli
