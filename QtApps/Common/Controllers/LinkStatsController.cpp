#include "LinkStatsController.h"

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Logger/Log.h"

#include "Common/Protocol/MessageTypes.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>
#include <QVariantMap>

#include <cmath>
#include <limits>

namespace communication {

namespace {
constexpr const char* kRecordSessionsKey = "link/recordSessions";
constexpr double kNoFigure = std::numeric_limits<double>::quiet_NaN();
} // namespace

LinkStatsController::LinkStatsController(ProtocolComms& comms, QObject* parent)
    : QObject(parent)
    , mComms(comms)
    , mRecordSessions(QSettings().value(QLatin1String(kRecordSessionsKey), false).toBool()) {
    connect(&comms.linkMonitor(), &LinkMonitor::statsUpdated, this,
            &LinkStatsController::onStatsUpdated, Qt::QueuedConnection);
}

void LinkStatsController::startRecordingAtStartUp(const QString& commandLinePath) {
    if (!commandLinePath.isEmpty()) {
        startRecording(commandLinePath);
    } else if (mRecordSessions) {
        startRecording(newRecordingPath());
    }
}

void LinkStatsController::onStatsUpdated(const LinkStatsSnapshot& snapshot) {
    mStats = snapshot;
    emit statsChanged();
}

double LinkStatsController::pingLastMs() const {
    return mStats.lastPingMs < 0 ? kNoFigure : static_cast<double>(mStats.lastPingMs);
}

double LinkStatsController::pingMeanMs() const {
    const LinkCounts& minute = mStats.lastMinute;
    return minute.pings == 0 ? kNoFigure : static_cast<double>(minute.pingTotalMs) / minute.pings;
}

double LinkStatsController::pingWorstMs() const {
    return mStats.lastMinute.pings == 0 ? kNoFigure
                                        : static_cast<double>(mStats.lastMinute.pingWorstMs);
}

QVariantList LinkStatsController::errorKinds() const {
    const LinkCounts& minute = mStats.lastMinute;
    const QString transportNames[kTransportErrorKinds] = {
        tr("Malformed frames"), tr("Transmit failures"), tr("Port errors")};
    QVariantList kinds;
    const auto add = [&kinds](const QString& name, std::uint32_t count, bool line) {
        if (count > 0) {
            kinds.append(QVariantMap{{QStringLiteral("kind"), name},
                                     {QStringLiteral("perMinute"), count},
                                     {QStringLiteral("line"), line}});
        }
    };
    for (std::size_t i = 0; i < kTransportErrorKinds; ++i) {
        add(transportNames[i], minute.transportErrors[i], true);
    }
    // The message layer's statuses keep their names: they are what the log says.
    for (std::size_t i = 0; i < kProtocolErrorKinds; ++i) {
        const auto status = static_cast<halyard::protocol::message::Status>(
            i < kProtocolErrorKinds - 1 ? i : halyard::protocol::message::kOutOfRange);
        add(tr("Protocol: %1")
                .arg(QString::fromLatin1(halyard::protocol::message::StatusName(status))),
            minute.protocolErrors[i], isLineProblem(i));
    }
    return kinds;
}

bool LinkStatsController::isLineProblem(std::size_t protocolErrorIndex) {
    using halyard::protocol::message::Status;
    return protocolErrorIndex == ProtocolErrorIndex(Status::InvalidMessage) ||
           protocolErrorIndex == ProtocolErrorIndex(Status::InvalidMessageId) ||
           protocolErrorIndex == ProtocolErrorIndex(Status::NakReceived);
}

int LinkStatsController::lineProblemsPerMinute() const {
    const LinkCounts& minute = mStats.lastMinute;
    std::uint32_t problems = minute.timeouts;
    for (const std::uint32_t count : minute.transportErrors) {
        problems += count;
    }
    for (std::size_t i = 0; i < kProtocolErrorKinds; ++i) {
        problems += isLineProblem(i) ? minute.protocolErrors[i] : 0;
    }
    return static_cast<int>(problems);
}

QString LinkStatsController::health() const {
    const LinkCounts& minute = mStats.lastMinute;
    const double problems = lineProblemsPerMinute();
    if (problems == 0) {
        return QStringLiteral("ok");
    }
    const double frames = static_cast<double>(minute.framesIn + minute.framesOut);
    if (problems >= kFailingMinimum && problems >= kFailingShare * frames) {
        return QStringLiteral("error");
    }
    return QStringLiteral("warning");
}

QString LinkStatsController::recordingsFolder() const {
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/recordings");
}

QString LinkStatsController::newRecordingPath() const {
    QDir().mkpath(recordingsFolder());
    return recordingsFolder() + QStringLiteral("/session-") +
           QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss")) +
           QStringLiteral(".bwrec");
}

void LinkStatsController::setRecordSessions(bool record) {
    if (record == mRecordSessions) {
        return;
    }
    mRecordSessions = record;
    QSettings().setValue(QLatin1String(kRecordSessionsKey), record);
    emit recordSessionsChanged();
    if (record) {
        startRecording(newRecordingPath());
    } else {
        stopRecording();
    }
}

void LinkStatsController::startRecording(const QString& path) {
    ProtocolComms* comms = &mComms;
    QMetaObject::invokeMethod(
        comms, [comms, path] { comms->startRecording(path); }, Qt::QueuedConnection);
}

void LinkStatsController::stopRecording() {
    ProtocolComms* comms = &mComms;
    QMetaObject::invokeMethod(
        comms, [comms] { comms->stopRecording(); }, Qt::QueuedConnection);
}

void LinkStatsController::openRecordingsFolder() const {
    QDir().mkpath(recordingsFolder());
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(recordingsFolder()))) {
        BWL_LOG_WARN("openRecordingsFolder",
                     QStringLiteral("Cannot show the folder %1").arg(recordingsFolder()));
    }
}

} // namespace communication
