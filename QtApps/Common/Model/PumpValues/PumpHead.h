#pragma once

#include "SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"

namespace communication {

/// The fitted pump head. The pump reports it as a catalogue index and takes it as its name;
/// the screens see only the name.
class PumpHead final : public SettableValue<objects::OemDeviceObject, QString> {
    Q_OBJECT

public:
    explicit PumpHead(ProtocolObjectContainer& container);

signals:
    void getHeadResponse(QString head);
    void setHeadAck();

public slots:
    void get() { SettableValue::get(); }
    void set(const QString& head) { SettableValue::set(head); }
    void retrySetHead() { retrySet(); }
    void onGetHeadResponse(halyard::pump::PumpHead head);
    void onSetPumpHeadAck(bool success, uint8_t attribute);
};

} // namespace communication
