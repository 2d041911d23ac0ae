#pragma once

#include "LinkStatsHistory.h"
#include "LinkStatsSnapshot.h"

#include <QObject>
#include <QTimer>

class QSerialPort;

namespace communication {

class LinkCounters;
class SessionRecorder;

/// Turns the link's counters into the figures of the link health, once a second: it takes the
/// second's counts, keeps the last minute of them, flushes a running session recording and
/// emits a snapshot, which reaches the user-interface thread through a queued connection. A
/// child of the comms object, so it runs on the comms thread with the counters it reads; the
/// counters are never touched from another thread and nothing is locked.
class LinkMonitor final : public QObject {
    Q_OBJECT

public:
    static constexpr int kIntervalMs = 1000;

    /// `counters`, `recorder` and `port` (not owned) belong to the comms object.
    LinkMonitor(LinkCounters& counters, SessionRecorder& recorder, QSerialPort& port,
                QObject* parent = nullptr);

    /// Emits the figures now, without closing the running second (after a recording started or
    /// stopped, say).
    void publish();

signals:
    void statsUpdated(communication::LinkStatsSnapshot snapshot);

private:
    void tick();

    LinkCounters& mCounters;
    SessionRecorder& mRecorder;
    QSerialPort& mPort;
    LinkStatsHistory mHistory;
    QTimer mTimer;
};

} // namespace communication
