#include "PumpLog.h"

namespace communication {

using objects::LoggerObject;

PumpLog::PumpLog(ProtocolObjectContainer& container)
    : ProxyValue(container, LoggerObject::Log, "PumpLog")
    , mFirstEntry(container)
    , mNextEntry(container) {
    // Children, so that they move with the log to another thread.
    mFirstEntry.setParent(this);
    mNextEntry.setParent(this);
    connect(&mFirstEntry, &PumpLogFirstEntry::getLogEntryResponse, this,
            &PumpLog::onGetFirstLogEntryResponse);
    connect(&mNextEntry, &PumpLogNextEntry::getLogEntryResponse, this,
            &PumpLog::onGetNextLogEntryResponse);
    connect(&mNextEntry, &PumpValueBase::getValueAborted, this, &PumpLog::onGetNextLogEntryAborted);
    connect(&proxy(), &LoggerObject::ackClearLog, this, &PumpLog::onClearLogAck);
    connect(&proxy(), &LoggerObject::clearLogTimeout, this, &PumpLog::onClearLogTimeout);
    connect(this, &PumpValueBase::retrySetValue, this, &PumpLog::clearLog);
    connect(this, &PumpValueBase::setValueAborted, this, [this] { mClearPending = false; });
}

void PumpLog::get() {
    mEntries.clear();
    mFirstEntry.get();
}

void PumpLog::clearLog() {
    mClearPending = send("clearLog, can't send request", &LoggerObject::ClearLog);
}

void PumpLog::onGetFirstLogEntryResponse(const QString& logEntry) {
    // The first entry is kept even when empty: it is what the pump holds first.
    mEntries.append(logEntry);
    mNextEntry.get();
}

void PumpLog::onGetNextLogEntryResponse(const QString& logEntry) {
    if (logEntry.isEmpty()) {
        emit logUpdated(mEntries);
        return;
    }
    mEntries.append(logEntry);
    mNextEntry.get();
}

void PumpLog::onClearLogTimeout() {
    if (mClearPending) {
        onSetValueTimeout(attribute());
    }
}

void PumpLog::onClearLogAck() {
    mClearPending = false;
    onAckSetValue(attribute());
    get();
}

} // namespace communication
