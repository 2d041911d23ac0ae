#pragma once

#include "PumpLogFirstEntry.h"
#include "PumpLogNextEntry.h"

#include <QStringList>

namespace communication {

/// The pump's event log: reads it entry by entry until an empty entry (or a failed read) ends
/// it, and clears it. The clear is booked like a Set of the log attribute, and a cleared log is
/// read again, so the screen shows the log as it now stands.
class PumpLog final : public ProxyValue<objects::LoggerObject> {
    Q_OBJECT

public:
    explicit PumpLog(ProtocolObjectContainer& container);

signals:
    /// The entries read, oldest first; emitted when a read ends.
    void logUpdated(const QStringList& log);

public slots:
    void get();
    void getLog() { get(); }
    void clearLog();
    void onGetFirstLogEntryResponse(const QString& logEntry);
    void onGetNextLogEntryResponse(const QString& logEntry);
    void onGetNextLogEntryAborted() { emit logUpdated(mEntries); }
    void onClearLogTimeout();
    void onClearLogAck();

private:
    PumpLogFirstEntry mFirstEntry;
    PumpLogNextEntry mNextEntry;
    QStringList mEntries;
    // The logger object also reports a clear time-out when an entry read times out; only a
    // clear that is waiting for its answer may take it.
    bool mClearPending = false;
};

} // namespace communication
