#include "LinkMonitor.h"

#include "LinkCounters.h"
#include "SessionRecorder.h"

#include <QSerialPort>

namespace communication {

LinkMonitor::LinkMonitor(LinkCounters& counters, SessionRecorder& recorder, QSerialPort& port,
                         QObject* parent)
    : QObject(parent)
    , mCounters(counters)
    , mRecorder(recorder)
    , mPort(port)
    , mTimer(this) {
    // Counted where the port says it wrote them, so bytes that never left are not counted.
    connect(&mPort, &QSerialPort::bytesWritten, this,
            [this](qint64 count) { mCounters.BytesOut(static_cast<std::size_t>(count)); });
    connect(&mTimer, &QTimer::timeout, this, &LinkMonitor::tick);
    mTimer.start(kIntervalMs);
}

void LinkMonitor::tick() {
    mHistory.add(mCounters.TakeCounts());
    mRecorder.flush();
    publish();
}

void LinkMonitor::publish() {
    LinkStatsSnapshot snapshot;
    snapshot.portName = mPort.portName();
    snapshot.portOpen = mPort.isOpen();
    snapshot.lastSecond = mHistory.lastSecond();
    snapshot.lastMinute = mHistory.lastMinute();
    snapshot.minuteSeconds = mHistory.seconds();
    snapshot.lastPingMs = mCounters.LastPingMs();
    snapshot.recording = mRecorder.isRecording();
    snapshot.recordingPath = mRecorder.path();
    snapshot.recordedEvents = mRecorder.eventsWritten();
    snapshot.recordingError = mRecorder.lastError();
    emit statsUpdated(snapshot);
}

} // namespace communication
