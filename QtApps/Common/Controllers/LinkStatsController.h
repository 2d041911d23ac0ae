#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Core/Communication/LinkStatsSnapshot.h"

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace communication {

class ProtocolComms;

/// The link's health for the screens ("cpp.LinkStatsController"): traffic each way, the
/// keep-alive's round trip, time-outs, retries and errors by kind over the last minute, the
/// port, and the session recording. The comms thread counts; once a second a snapshot of its
/// figures arrives here through a queued signal (notified by `statsChanged`), so nothing is
/// shared between the threads.
///
/// Health, from the last minute's line problems: what a bad cable or a noisy line causes (frames
/// that do not decode, failed writes, port errors, time-outs, and messages that arrive unreadable,
/// unexpected or refused with Nak). "ok" with none, "warning" with some, "error" when they reach
/// kFailingShare of the frames (and at least kFailingMinimum of them, so one lost answer in a
/// quiet minute stays a warning). Messages an object declined (Failed) or addressed to an object
/// or instance the other end lacks come from the software of either end, not the line: they are
/// listed among the errors but leave the health alone.
///
/// Recording: `recordSessions` is a setting kept between runs; while on, every run of the
/// application records into a new file of `recordingsFolder`. A file named on the command line
/// (`--record FILE`) is recorded for that run instead.
class LinkStatsController final : public QObject, public QmlSingleton<LinkStatsController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The port the link has (or last had) open.
    Q_PROPERTY(QString portName READ portName NOTIFY statsChanged)
    Q_PROPERTY(bool portOpen READ portOpen NOTIFY statsChanged)
    /// Traffic over the last second, bytes and frames per second.
    Q_PROPERTY(double bytesInPerSecond READ bytesInPerSecond NOTIFY statsChanged)
    Q_PROPERTY(double bytesOutPerSecond READ bytesOutPerSecond NOTIFY statsChanged)
    Q_PROPERTY(double framesInPerSecond READ framesInPerSecond NOTIFY statsChanged)
    Q_PROPERTY(double framesOutPerSecond READ framesOutPerSecond NOTIFY statsChanged)
    /// Keep-alive round trip, milliseconds: the last one, and the mean and the worst over the
    /// last minute. Not a number while there is none.
    Q_PROPERTY(double pingLastMs READ pingLastMs NOTIFY statsChanged)
    Q_PROPERTY(double pingMeanMs READ pingMeanMs NOTIFY statsChanged)
    Q_PROPERTY(double pingWorstMs READ pingWorstMs NOTIFY statsChanged)
    /// Over the last minute.
    Q_PROPERTY(int timeoutsPerMinute READ timeoutsPerMinute NOTIFY statsChanged)
    Q_PROPERTY(int retriesPerMinute READ retriesPerMinute NOTIFY statsChanged)
    /// Transport and protocol errors together, over the last minute.
    Q_PROPERTY(int errorsPerMinute READ errorsPerMinute NOTIFY statsChanged)
    /// The line problems (see the class comment) of the last minute, time-outs included.
    Q_PROPERTY(int lineProblemsPerMinute READ lineProblemsPerMinute NOTIFY statsChanged)
    /// The kinds of error seen in the last minute, each {"kind": name, "perMinute": count,
    /// "line": whether it is a line problem}.
    Q_PROPERTY(QVariantList errorKinds READ errorKinds NOTIFY statsChanged)
    /// How many seconds the minute's figures cover (fewer than 60 in the first minute).
    Q_PROPERTY(int minuteSeconds READ minuteSeconds NOTIFY statsChanged)
    /// "ok", "warning" or "error" (see the class comment).
    Q_PROPERTY(QString health READ health NOTIFY statsChanged)

    /// Whether a recording runs now, its file, and the events it has written.
    Q_PROPERTY(bool recording READ recording NOTIFY statsChanged)
    Q_PROPERTY(QString recordingPath READ recordingPath NOTIFY statsChanged)
    Q_PROPERTY(double recordedEvents READ recordedEvents NOTIFY statsChanged)
    /// Why the last recording could not start or stopped by itself; empty otherwise.
    Q_PROPERTY(QString recordingError READ recordingError NOTIFY statsChanged)
    /// The setting: record every run.
    Q_PROPERTY(bool recordSessions READ recordSessions WRITE setRecordSessions NOTIFY
                   recordSessionsChanged)
    /// Where the setting's recordings go.
    Q_PROPERTY(QString recordingsFolder READ recordingsFolder CONSTANT)

public:
    /// Problems (errors and time-outs) that make a minute "error": this share of its frames...
    static constexpr double kFailingShare = 0.01;
    /// ...and at least this many.
    static constexpr int kFailingMinimum = 3;

    /// `comms` (not owned) lives on the comms thread: it is reached only by queued calls.
    explicit LinkStatsController(ProtocolComms& comms, QObject* parent = nullptr);

    /// Starts the run's recording: into `commandLinePath` when one was given, else into a new
    /// file of the recordings folder when the setting says so, else none.
    void startRecordingAtStartUp(const QString& commandLinePath);

    QString portName() const { return mStats.portName; }
    bool portOpen() const { return mStats.portOpen; }
    double bytesInPerSecond() const { return static_cast<double>(mStats.lastSecond.bytesIn); }
    double bytesOutPerSecond() const { return static_cast<double>(mStats.lastSecond.bytesOut); }
    double framesInPerSecond() const { return static_cast<double>(mStats.lastSecond.framesIn); }
    double framesOutPerSecond() const { return static_cast<double>(mStats.lastSecond.framesOut); }
    double pingLastMs() const;
    double pingMeanMs() const;
    double pingWorstMs() const;
    int timeoutsPerMinute() const { return static_cast<int>(mStats.lastMinute.timeouts); }
    int retriesPerMinute() const { return static_cast<int>(mStats.lastMinute.retries); }
    int errorsPerMinute() const { return static_cast<int>(mStats.lastMinute.errors()); }
    int lineProblemsPerMinute() const;
    QVariantList errorKinds() const;
    int minuteSeconds() const { return mStats.minuteSeconds; }
    QString health() const;

    bool recording() const { return mStats.recording; }
    QString recordingPath() const { return mStats.recordingPath; }
    double recordedEvents() const { return static_cast<double>(mStats.recordedEvents); }
    QString recordingError() const { return mStats.recordingError; }
    bool recordSessions() const { return mRecordSessions; }
    QString recordingsFolder() const;

signals:
    void statsChanged();
    void recordSessionsChanged();

public slots:
    /// Turns the setting on (a recording starts at once, into a new file) or off (the running
    /// recording ends).
    void setRecordSessions(bool record);
    /// Records into `path` now, ending any running recording first.
    void startRecording(const QString& path);
    void stopRecording();
    /// Shows the recordings folder in the platform's file manager.
    void openRecordingsFolder() const;

private slots:
    void onStatsUpdated(const communication::LinkStatsSnapshot& snapshot);

private:
    QString newRecordingPath() const;
    /// Whether a protocol error of this kind comes from the line rather than the software.
    static bool isLineProblem(std::size_t protocolErrorIndex);

    ProtocolComms& mComms;
    LinkStatsSnapshot mStats;
    bool mRecordSessions = false;
};

} // namespace communication
