#pragma once

#include "ProtocolProxy.h"

#include <QList>
#include <QObject>

namespace communication::objects {

/// Proxy of the stepper-motor drive (object 3, instance 2): the torque index and the table of
/// torque targets. Unlike the motor proxy, a refused set emits its own signal, nakSetResult.
class MotorStepperObject : public QObject, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 3;
    static constexpr uint8_t kInstance = 2;
    enum Attribute : uint8_t { TorqueIndex = 5, TorqueTargets = 6 };

    explicit MotorStepperObject(halyard::protocol::ProtocolInterface& protocol,
                                QObject* parent = nullptr);

    bool GetTorqueIndex();
    bool GetTorqueTargets();
    bool SetTorqueIndex(uint8_t index);

signals:
    void ackGetResult(uint8_t attribute);
    void ackSetResult(uint8_t attribute);
    void nakSetResult(uint8_t attribute);
    void getTimeout(uint8_t attribute);
    void setTimeout(uint8_t attribute);
    void getTorqueIndexResponse(uint8_t index);
    void getTorqueTargetsResponse(QList<float> targetCurrentsA);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    /// The pump sends nothing to this object: its requests are not consumed and get no answer.
    bool HandlePumpRequest(const ProtocolMessage& message) override;

private:
    bool HandleGetResponse(const ProtocolMessage& message);
};

} // namespace communication::objects
