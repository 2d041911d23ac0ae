#pragma once

#include "LinkCounts.h"

#include <QMetaType>
#include <QString>

namespace communication {

/// The link's figures as the comms thread hands them to the user-interface thread once a
/// second: a copy, so the two threads share nothing.
struct LinkStatsSnapshot {
    QString portName;
    bool portOpen = false;
    /// The last second.
    LinkCounts lastSecond;
    /// The seconds of the last minute added up.
    LinkCounts lastMinute;
    /// How many seconds lastMinute covers: fewer than 60 during the first minute.
    int minuteSeconds = 0;
    /// The last keep-alive round trip in milliseconds; -1 before the first.
    qint64 lastPingMs = -1;

    bool recording = false;
    /// The running (or the last) recording's file.
    QString recordingPath;
    quint64 recordedEvents = 0;
    /// Why the last recording could not start or stopped by itself; empty otherwise.
    QString recordingError;
};

} // namespace communication

Q_DECLARE_METATYPE(communication::LinkStatsSnapshot)
