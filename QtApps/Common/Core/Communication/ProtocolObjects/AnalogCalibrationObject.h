#pragma once

#include "ProtocolProxy.h"

#include <QObject>

namespace communication::objects {

/// Proxy of the analog input calibration (object 4, instance 3): slope and offset of three
/// channels (attributes 0 to 2). Problems with an answer are reported as signals
/// (invalidAttribute, invalidOperation, invalidType, invalidData) rather than answered.
class AnalogCalibrationObject : public QObject, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 4;
    static constexpr uint8_t kInstance = 3;
    static constexpr uint8_t kLastChannel = 2;

    explicit AnalogCalibrationObject(halyard::protocol::ProtocolInterface& protocol,
                                     QObject* parent = nullptr);

    /// Sends a get of the attribute as given; the answer tells whether it exists.
    bool GetCalibration(uint8_t attribute);
    /// False without sending for an attribute above 2.
    bool SetCalibration(uint8_t attribute, float slope, float offset);

signals:
    void invalidAttribute(uint8_t attribute);
    void invalidOperation();
    void invalidType();
    void invalidData(uint8_t attribute);
    void nakGet(uint8_t attribute);
    void getTimeout(uint8_t attribute);
    void setTimeout(uint8_t attribute);
    void ackSetCalibration(bool success, uint8_t attribute);
    void ackGetCalibration(uint8_t attribute, float slope, float offset);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandlePumpRequest(const ProtocolMessage& message) override;
    bool HandleUnknownType(const ProtocolMessage& message) override;

private:
    bool HandleAnswer(const ProtocolMessage& message, bool accepted);
};

} // namespace communication::objects
