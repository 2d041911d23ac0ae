#include "Command.h"

#include "CliInvocation.h"
#include "CliOutput.h"

#include "QtApps/Common/Controllers/ControllerRegistry.h"
#include "QtApps/Common/Controllers/PumpDetailsController.h"
#include "QtApps/Common/Controllers/PumpSessionController.h"
#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Instantiation/ApplicationCore.h"
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettings.h"

namespace cli {

using communication::PumpDetailsController;
using communication::PumpSessionController;

Command::Command(const QString& name, CommandContext& context, QObject* parent)
    : QObject(parent)
    , mName(name)
    , mContext(context)
    , mSession(context.core.controllers().pumpSessionController()) {
    mConnectTimer.setSingleShot(true);
    connect(&mConnectTimer, &QTimer::timeout, this, &Command::onNoPump);
    mAnswerTimer.setSingleShot(true);
    connect(&mAnswerTimer, &QTimer::timeout, this, [this] {
        fail(pumpSettings::PumpSettings::resultText(
            pumpSettings::PumpSettingsResultType::PumpResponseTimeout));
    });
    mStopTimer.setSingleShot(true);
    connect(&mStopTimer, &QTimer::timeout, this, &Command::end);

    connect(&mSession, &PumpSessionController::connectedStatusChanged, this,
            &Command::onConnectionChanged);
    connect(&details(), &PumpDetailsController::deviceDetailsChanged, this,
            &Command::onDetailsChanged);
    connect(&details(), &PumpDetailsController::pumpDetailsChanged, this,
            &Command::onDetailsChanged);
    connect(&context.core.comms(), &communication::ProtocolCommsInterface::portOpenFailed, this,
            &Command::onPortOpenFailed, Qt::QueuedConnection);
}

communication::ControllerRegistry& Command::controllers() const {
    return mContext.core.controllers();
}

models::ModelRegistry& Command::models() const {
    return mContext.core.models();
}

communication::PumpValues& Command::values() const {
    return mContext.core.values();
}

PumpDetailsController& Command::details() const {
    return controllers().pumpDetailsController();
}

communication::ProtocolObjectContainer& Command::protocolObjects() const {
    return core().comms().protocolObjects();
}

void Command::start() {
    BWL_LOG_INFO("start", QStringLiteral("brackwater-cli %1 %2")
                              .arg(mName, invocation().arguments.join(QLatin1Char(' ')))
                              .trimmed());
    if (!needsSession()) {
        mRunning = true;
        run();
        return;
    }
    mConnectTimer.start(invocation().timeoutMs);
    emit mSession.startScanning();
}

void Command::interrupt() {
    if (!mFinishing) {
        output().error(tr("Interrupted"));
    }
    finish(ExitStatus::Interrupted);
}

void Command::onSessionLost() {
    fail(tr("Disconnected."));
}

void Command::fail(const QString& text) {
    if (mFinishing) {
        return;
    }
    output().error(text);
    finish(ExitStatus::Failed);
}

void Command::finish(ExitStatus status) {
    if (mFinishing) {
        return;
    }
    mFinishing = true;
    mStatus = status;
    mConnectTimer.stop();
    mAnswerTimer.stop();
    BWL_LOG_INFO(
        "finish",
        QStringLiteral("brackwater-cli %1 ends with status %2").arg(mName).arg(code(status)));
    output().finish(mName, code(status));
    stopSessionThenEnd();
}

void Command::expectAnswerWithin(int ms) {
    mAnswerTimer.start(ms);
}

void Command::onConnectionChanged() {
    if (mFinishing) {
        if (!mSession.pumpConnected()) {
            end();
        }
        return;
    }
    if (!mRunning) {
        runWhenReady();
    } else if (!mSession.pumpConnected() && !mSessionLost) {
        mSessionLost = true;
        onSessionLost();
    } else if (mSession.pumpConnected() && mSessionLost) {
        mSessionLost = false;
        onSessionBack();
    }
}

void Command::onDetailsChanged() {
    if (!mRunning && !mFinishing) {
        runWhenReady();
    }
}

// Connected is not enough: the commands need to know the pump (its kind, its serial), and the
// details controller asks for that as soon as the session opens.
void Command::runWhenReady() {
    if (!mSession.pumpConnected() || !details().pumpDetailsKnown() ||
        details().appVersion().isEmpty()) {
        return;
    }
    mConnectTimer.stop();
    mRunning = true;
    BWL_LOG_INFO("runWhenReady", QStringLiteral("Pump %1 (%2) connected")
                                     .arg(details().pumpSerial(), details().partNumber()));
    run();
}

void Command::onNoPump() {
    const double seconds = invocation().timeoutMs / 1000.0;
    if (invocation().ports.isEmpty()) {
        output().error(tr("No pump answered within %1 s").arg(seconds));
    } else {
        output().error(tr("No pump answered on %1 within %2 s")
                           .arg(invocation().ports.join(QStringLiteral(", ")))
                           .arg(seconds));
    }
    finish(ExitStatus::NoPump);
}

// The scan tries a port every half second: each reason is told once.
void Command::onPortOpenFailed(const QString& portName, const QString& reason) {
    if (!mReportedPorts.contains(portName)) {
        mReportedPorts.insert(portName);
        output().notice(reason);
    }
}

void Command::stopSessionThenEnd() {
    if (!mSession.pumpConnected()) {
        end();
        return;
    }
    mStopTimer.start(kSessionStopLimitMs);
    emit mSession.disconnectPump();
}

void Command::end() {
    if (mEnded) {
        return;
    }
    mEnded = true;
    mStopTimer.stop();
    emit finished(code(mStatus));
}

} // namespace cli
