#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"

namespace communication {

/// The next entry of the pump's event log. A refused request ends a read like a Get that
/// timed out three times: both are reported as getValueAborted.
class PumpLogNextEntry final : public ReadableValue<objects::LoggerObject> {
    Q_OBJECT

public:
    explicit PumpLogNextEntry(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::LoggerObject::NextLogEntry, "PumpLogNextEntry") {
        setGetRequest(RefusedText::withLabel("GetLogEntry", "getLogEntry, can't send request"),
                      &objects::LoggerObject::GetNextLogEntry);
        forwardResponse(&objects::LoggerObject::getNextLogEntryResponse,
                        &PumpLogNextEntry::onGetNextLogEntryResponse);
        connect(&proxy(), &objects::LoggerObject::getNak, this, [this](uint8_t attribute) {
            if (attribute == this->attribute()) {
                onAckGetValue(attribute);
                emit getValueAborted();
            }
        });
    }

signals:
    void getLogEntryResponse(QString logEntry);

public slots:
    void get() { ReadableValue::get(); }
    void onGetNextLogEntryResponse(const QString& logEntry) { emit getLogEntryResponse(logEntry); }
};

} // namespace communication
