#pragma once

#include "ProtocolObjectSubscribeInterface.h"
#include "ProtocolProxy.h"
#include "PumpEnums.h"

namespace communication::objects {

/// Proxy of the pump as a machine (object 2, instance 1): faults, cover, direction, power use,
/// control input and the application speed with its enable and override.
///
/// A refused set emits ackSetResult exactly like an accepted one: callers read the value back
/// after every acknowledged set, which shows what the pump holds either way.
class PumpObject : public ProtocolObjectSubscribeInterface, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 2;
    static constexpr uint8_t kInstance = 1;
    enum Attribute : uint8_t {
        FaultAcknowledge = 0,
        Faults = 1,
        ControlInput = 2,
        ApplicationSpeed = 3,
        ApplicationSpeedEnable = 4,
        ApplicationOverrideActive = 5,
        MaxApplicationSpeed = 6,
        CoverStatus = 7,
        Direction = 8,
        PowerUsage = 9,
    };

    explicit PumpObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent = nullptr);

    bool RequestAckFaults();
    bool RequestSetMotorFault(uint8_t faultType);
    bool RequestSetControlInput(uint8_t controlInput);
    bool RequestSetApplicationSpeed(uint32_t applicationSpeedDrpm);
    bool RequestSetApplicationSpeedEnable(uint8_t enable);
    bool RequestSetApplicationOverrideActive(uint8_t active);
    bool RequestGetControlInput();
    bool RequestGetApplicationSpeed();
    bool RequestGetApplicationSpeedEnable();
    bool RequestGetApplicationOverrideActive();
    bool RequestGetMaxApplicationSpeed();

    /// Published attributes: 1, 3, 5, 6, 7, 8 and 9.
    bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) override;
    bool Unsubscribe(uint8_t attribute) override;

signals:
    void ackGetResult(uint8_t attribute);
    void ackSetResult(uint8_t attribute);
    void ackSetFaultResult(communication::MotorFaultType type);
    void getTimeout(uint8_t attribute);
    void setTimeout(uint8_t attribute);
    void updateFaults(uint32_t faults);
    void updateCoverStatus(bool coverOpen);
    void updateApplicationOverrideActive(bool active);
    void updateDirection(halyard::Direction direction);
    void updatePowerUsage(float powerUsage);
    void updateMaxApplicationSpeed(uint32_t speedDrpm);
    void updateApplicationSpeed(uint32_t speedDrpm);
    void getControlInputResponse(halyard::pump::ControlInput controlInput);
    void getApplicationSpeedResponse(int32_t applicationSpeedDrpm);
    void getApplicationSpeedEnableResponse(bool enable);
    void getMaxApplicationSpeedResponse(uint32_t maxApplicationSpeedDrpm);
    void getApplicationOverrideActiveResponse(bool active);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandleUpdate(const ProtocolMessage& message) override;

private:
    static bool IsPublished(uint8_t attribute);
    bool HandleGetResponse(const ProtocolMessage& message);
};

} // namespace communication::objects
