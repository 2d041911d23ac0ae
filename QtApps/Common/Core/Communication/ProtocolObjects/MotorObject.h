#pragma once

#include "CelerationLimits.h"
#include "EncoderData.h"
#include "ProtocolObjectSubscribeInterface.h"
#include "ProtocolProxy.h"

namespace communication::objects {

/// Proxy of the pump's motor (object 3, instance 1): actual speed, alignment and energised state
/// (published), acceleration and deceleration with their limits, and the encoder readout.
/// Accepted and refused sets both emit ackSetResult.
class MotorObject : public ProtocolObjectSubscribeInterface, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 3;
    static constexpr uint8_t kInstance = 1;
    enum Attribute : uint8_t {
        ActualSpeed = 3,
        EncoderData = 4,
        Acceleration = 5,
        Deceleration = 6,
        CelerationLimits = 7,
        Aligned = 8,
        Energised = 10,
    };

    explicit MotorObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent = nullptr);

    bool GetEncoderData();
    bool GetAcceleration();
    bool GetDeceleration();
    bool GetCelerationLimits();
    bool SetAcceleration(float accelerationRpmPerSec);
    bool SetDeceleration(float decelerationRpmPerSec);

    /// Published attributes: 3, 8 and 10.
    bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) override;
    bool Unsubscribe(uint8_t attribute) override;

signals:
    void ackGetResult(uint8_t attribute);
    void ackSetResult(uint8_t attribute);
    void getTimeout(uint8_t attribute);
    void setTimeout(uint8_t attribute);
    void updateActualSpeed(int32_t speedDrpm);
    void updateIsAligned(bool isAligned);
    void updateIsEnergized(bool isEnergized);
    void getAccelerationResponse(float accelerationRpmPerSec);
    void getDecelerationResponse(float decelerationRpmPerSec);
    void getEncoderDataResponse(halyard::encoder::EncoderData data);
    void getCelerationLimitsResponse(communication::objects::CelerationLimits limits);

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
