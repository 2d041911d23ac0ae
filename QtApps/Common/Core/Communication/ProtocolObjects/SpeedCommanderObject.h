#pragma once

#include "ProtocolObjectSubscribeInterface.h"
#include "ProtocolProxy.h"
#include "SpeedRangeProfile.h"

namespace communication::objects {

/// Proxy of the pump's speed commander (object 5, instance 1): the speed ranges of the current,
/// voltage and frequency inputs with their limits, the enable-line speed with its limits, and
/// the published target speeds and enable-line state.
///
/// Gets and set-defaults address the request message without touching its payload, so they go
/// out carrying whatever payload the previous request left; the pump ignores it. Accepted and
/// refused sets (and set-defaults) emit the same acknowledgement.
class SpeedCommanderObject : public ProtocolObjectSubscribeInterface, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 5;
    static constexpr uint8_t kInstance = 1;
    enum Attribute : uint8_t {
        CurrentSpeedRange = 1,
        CurrentSpeedRangeLimits = 2,
        CurrentTargetSpeed = 3,
        VoltageSpeedRange = 5,
        VoltageSpeedRangeLimits = 6,
        VoltageTargetSpeed = 7,
        EnableLineSpeed = 9,
        EnableLineSpeedLimits = 10,
        EnableLineAsserted = 11,
        FrequencySpeedRange = 12,
        FrequencySpeedRangeLimits = 13,
        FrequencyTargetSpeed = 14,
    };

    explicit SpeedCommanderObject(halyard::protocol::ProtocolInterface& protocol,
                                  QObject* parent = nullptr);

    bool Get(uint8_t attribute);
    /// Only for the speed ranges (1, 5, 12) and the enable-line speed (9).
    bool SetDefault(uint8_t attribute);
    /// Only for the speed ranges (1, 5, 12).
    bool WriteProfileToRequest(uint8_t attribute, const QSpeedRangeProfile& profile);
    bool SetEnableLineSpeed(uint32_t speedDrpm);
    /// Sets the hysteresis through whichever attribute the caller names.
    bool SetHysteresis(uint8_t attribute, uint32_t hysteresis);

    /// Accepts attributes 0 to 15.
    bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) override;
    bool Unsubscribe(uint8_t attribute) override;

signals:
    void getCurrentSpeedRangeResponse(communication::objects::QSpeedRangeProfile profile);
    void getCurrentSpeedRangeLimitsResponse(communication::objects::QSpeedRangeProfile profile);
    void getFrequencySpeedRangeResponse(communication::objects::QSpeedRangeProfile profile);
    void getFrequencySpeedRangeLimitsResponse(communication::objects::QSpeedRangeProfile profile);
    void getVoltageSpeedRangeResponse(communication::objects::QSpeedRangeProfile profile);
    void getVoltageSpeedRangeLimitsResponse(communication::objects::QSpeedRangeProfile profile);
    void getEnableLineSpeedResponse(uint32_t speedDrpm);
    void getEnableLineSpeedLimitsResponse(uint32_t minSpeedDrpm, uint32_t maxSpeedDrpm);
    void getTimeout(uint8_t attribute);
    void setTimeout(uint8_t attribute);
    void setDefaultTimeout(uint8_t attribute);
    void getAck(uint8_t attribute);
    void setAck(uint8_t attribute);
    void setDefaultAck(uint8_t attribute);
    void updateVoltageTargetSpeed(uint32_t speedDrpm);
    void updateFrequencyTargetSpeed(uint32_t speedDrpm);
    void updateCurrentTargetSpeed(uint32_t speedDrpm);
    void updateEnableLineAsserted(bool asserted);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandleUpdate(const ProtocolMessage& message) override;

private:
    static bool IsSpeedRange(uint8_t attribute);
    using ProfileSignal = void (SpeedCommanderObject::*)(QSpeedRangeProfile);
    bool HandleGet(const ProtocolMessage& message);
    bool EmitProfile(const ProtocolMessage& message, ProfileSignal signal);
};

} // namespace communication::objects
