#pragma once

#include "DeviceDetails.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolProxy.h"

#include <QObject>

namespace communication::objects {

/// Proxy of the pump as a device (object 1, instance 1): reads the device details (device type
/// and application firmware version) and resets (restarts) the device. Only accepted answers
/// are handled; refusals are left to the requester's time-out and retry.
class DeviceObject : public QObject, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 1;
    static constexpr uint8_t kInstance = 1;

    explicit DeviceObject(halyard::protocol::ProtocolInterface& protocol,
                          QObject* parent = nullptr);

    bool RequestGetAll();
    bool RequestReset();

signals:
    void receivedDeviceDetails(communication::objects::DeviceDetails details);
    void receivedResetAck();
    void getTimedOut(uint8_t attribute);
    void resetTimedOut();

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandlePumpRequest(const ProtocolMessage& message) override;
};

} // namespace communication::objects
