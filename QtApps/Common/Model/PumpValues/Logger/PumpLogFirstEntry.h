#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"

namespace communication {

/// The first entry of the pump's event log.
class PumpLogFirstEntry final : public ReadableValue<objects::LoggerObject> {
    Q_OBJECT

public:
    explicit PumpLogFirstEntry(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::LoggerObject::FirstLogEntry, "PumpLogFirstEntry") {
        setGetRequest(RefusedText::withLabel("GetLogEntry", "getLogEntry, can't send request"),
                      &objects::LoggerObject::GetFirstLogEntry);
        forwardResponse(&objects::LoggerObject::getFirstLogEntryResponse,
                        &PumpLogFirstEntry::onGetFirstLogEntryResponse);
    }

signals:
    void getLogEntryResponse(QString logEntry);

public slots:
    void get() { ReadableValue::get(); }
    void onGetFirstLogEntryResponse(const QString& logEntry) { emit getLogEntryResponse(logEntry); }
};

} // namespace communication
