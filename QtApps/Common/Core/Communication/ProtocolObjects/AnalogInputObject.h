#pragma once

#include "ProtocolObjectSubscribeInterface.h"
#include "ProtocolProxy.h"

namespace communication::objects {

/// Proxy of the pump's analog input measurements (object 4, instance 1). Every attribute is a
/// published float. Answers to this proxy's requests are reported only as ackResult (success
/// for a response, failure otherwise), whatever the operation: it never emits
/// ackSubscribeResult.
class AnalogInputObject : public ProtocolObjectSubscribeInterface, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 4;
    static constexpr uint8_t kInstance = 1;
    enum Attribute : uint8_t {
        InputCurrent = 0,
        InputVoltage = 1,
        Frequency = 2,
        BusVoltage = 3,
        Temperature = 4,
        AdcCurrent = 5,
        AdcVoltage = 6,
        AdcBusVoltage = 7,
    };

    explicit AnalogInputObject(halyard::protocol::ProtocolInterface& protocol,
                               QObject* parent = nullptr);

    /// Published attributes: 0 to 7.
    bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) override;
    bool Unsubscribe(uint8_t attribute) override;

signals:
    void ackResult(bool success, uint8_t attribute);
    void updateInputCurrent(float currentMicroAmps);
    void updateInputVoltage(float voltageMilliVolts);
    void updateFrequency(float frequencyHz);
    void updateBusVoltage(float busVoltageMilliVolts);
    void updateTemperature(float temperatureDegC);
    void updateAdcCurrent(float adcCurrentMilliVolts);
    void updateAdcVoltage(float adcVoltageMilliVolts);
    void updateAdcBusVoltage(float adcBusVoltageMilliVolts);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandleUpdate(const ProtocolMessage& message) override;
    bool HandleUnknownType(const ProtocolMessage& message) override;

private:
    static bool IsPublished(uint8_t attribute) { return attribute <= AdcBusVoltage; }
};

} // namespace communication::objects
