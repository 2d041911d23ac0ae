#pragma once

#include "PumpDetails.h"
#include "QPumpHeadParameterTypes.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolProxy.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpEnums.h"

#include <QList>
#include <QObject>
#include <QString>

namespace communication::objects {

/// Proxy of the pump's OEM identity (object 1, instance 2): pump details, product description,
/// the fitted pump head and the list of pump-head types, a port setting, and the reset of the
/// non-volatile memory. Every request is built in a fresh message. The pump sends nothing to
/// this object: its requests are answered InvalidMessageData.
class OemDeviceObject : public QObject, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 1;
    static constexpr uint8_t kInstance = 2;
    enum Attribute : uint8_t {
        Details = 0,
        PumpHead = 3,
        PumpHeads = 4,
        NonVolatileMemory = 8,
        PlecPortCliEnable = 9,
        ProductDescription = 10,
    };

    explicit OemDeviceObject(halyard::protocol::ProtocolInterface& protocol,
                             QObject* parent = nullptr);

    bool RequestGetAll();
    bool RequestGetPumpHead();
    bool RequestGetPumpHeads();
    bool RequestGetPlecPortCliEnable();
    bool RequestGetProductDescription();
    /// The head's name in the local 8-bit encoding, NUL-terminated.
    bool RequestSetPumpHead(const QString& head);
    bool RequestSetPlecPortCliEnable(uint8_t enable);
    bool RequestResetFram();

signals:
    void receivedPumpDetails(communication::objects::PumpDetails type);
    void receivedProductDescription(bool success, communication::objects::PumpDetails type);
    void receivedSetAck(bool success, uint8_t attribute, halyard::protocol::message::Status status);
    void receivedResetFramAck(bool success);
    void receivedCliEnableAck(uint8_t value);
    void receivedPumpHead(halyard::pump::PumpHead head);
    void receivedPumpHeads(QList<communication::objects::QPumpHeadParameterTypes> heads);
    void getTimedOut(uint8_t attribute);
    void setTimedOut(uint8_t attribute);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandlePumpRequest(const ProtocolMessage& message) override;
    bool HandleUnknownType(const ProtocolMessage& message) override;

private:
    ProtocolMessage FreshRequest(uint8_t attribute, Operation operation) const;
    bool SendFresh(uint8_t attribute, Operation operation);
    bool HandleAnswer(const ProtocolMessage& message);
    bool HandleGetResponse(const ProtocolMessage& message);
    void EmitProductDescription(const ProtocolMessage& message);
};

} // namespace communication::objects
