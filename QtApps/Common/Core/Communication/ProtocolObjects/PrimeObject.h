#pragma once

#include "ProtocolObjectSubscribeInterface.h"
#include "ProtocolProxy.h"

namespace communication::objects {

/// Proxy of the pump's prime function (object 2, instance 2): the prime input state and the
/// prime speed, both readable and published; the prime speed is settable.
class PrimeObject : public ProtocolObjectSubscribeInterface, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 2;
    static constexpr uint8_t kInstance = 2;
    enum Attribute : uint8_t { PrimeInputState = 1, PrimeSpeed = 3 };

    explicit PrimeObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent = nullptr);

    bool GetPrimeInputState();
    bool GetPrimeSpeed();
    bool SetPrimeSpeed(uint32_t speedDrpm);

    /// Accepts attributes 0 to 3, although the pump publishes only 1 and 3.
    bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) override;
    bool Unsubscribe(uint8_t attribute) override;

signals:
    void ackGetResult(uint8_t attribute);
    void ackSetResult(uint8_t attribute);
    void getTimeout(uint8_t attribute);
    void setTimeout(uint8_t attribute);
    void updatePrimeInputState(uint8_t state);
    void updatePrimeSpeed(uint32_t speedDrpm);
    void getPrimeInputStateResponse(uint8_t state);
    void getPrimeSpeedResponse(uint32_t primeSpeed);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandleUpdate(const ProtocolMessage& message) override;

private:
    static bool IsSubscribable(uint8_t attribute) { return attribute < 4; }
    bool HandleGetResponse(const ProtocolMessage& message);
};

} // namespace communication::objects
