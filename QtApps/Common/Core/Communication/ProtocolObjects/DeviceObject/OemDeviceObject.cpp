#include "OemDeviceObject.h"

#include <array>

namespace communication::objects {

using halyard::protocol::PayloadReader;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;

namespace {

// A text field of the payload: up to the first NUL, which belongs to the field. Fails when no
// NUL comes within the field's capacity.
template <std::size_t Capacity>
bool ReadText(PayloadReader& reader, std::array<char, Capacity>& field, std::size_t& length) {
    field.fill('\0');
    if (!reader.ReadString(field.data(), field.size())) {
        return false;
    }
    length = std::char_traits<char>::length(field.data());
    return true;
}

bool ReadPumpDetails(PayloadReader& reader, PumpDetails& details) {
    return reader.Read(details.pumpType) && reader.Read(details.motorType) &&
           reader.Read(details.headType) &&
           ReadText(reader, details.pumpSerial, details.pumpSerialLength) &&
           ReadText(reader, details.partNumber, details.partNumberLength) &&
           reader.Read(details.isNetworkPump) && reader.Read(details.isStepperPump);
}

// The list is all or nothing: a half row drops the whole answer, and so does an empty list.
bool ReadPumpHeads(PayloadReader& reader, QList<QPumpHeadParameterTypes>& heads) {
    while (reader.Remaining() > 0) {
        std::array<char, QPumpHeadParameterTypes::kNameCapacity> name{};
        QPumpHeadParameterTypes row;
        if (!reader.ReadString(name.data(), name.size()) || !reader.Read(row.value) ||
            !reader.Read(row.parameterA) || !reader.Read(row.parameterB)) {
            return false;
        }
        row.name = QString::fromLocal8Bit(name.data());
        heads.append(row);
    }
    return !heads.isEmpty();
}

} // namespace

OemDeviceObject::OemDeviceObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

ProtocolProxy::ProtocolMessage OemDeviceObject::FreshRequest(uint8_t attribute,
                                                             Operation operation) const {
    ProtocolMessage message;
    message.type = Type::Request;
    message.object = kObjectId;
    message.instance = kInstance;
    message.attribute = attribute;
    message.SetOperation(operation);
    return message;
}

bool OemDeviceObject::SendFresh(uint8_t attribute, Operation operation) {
    ProtocolMessage message = FreshRequest(attribute, operation);
    return Messaging().Send(message);
}

bool OemDeviceObject::RequestGetAll() {
    return SendFresh(Details, Operation::GetAll);
}
bool OemDeviceObject::RequestGetPumpHead() {
    return SendFresh(PumpHead, Operation::Get);
}
bool OemDeviceObject::RequestGetPumpHeads() {
    return SendFresh(PumpHeads, Operation::Get);
}
bool OemDeviceObject::RequestGetPlecPortCliEnable() {
    return SendFresh(PlecPortCliEnable, Operation::Get);
}
bool OemDeviceObject::RequestGetProductDescription() {
    return SendFresh(ProductDescription, Operation::Get);
}
bool OemDeviceObject::RequestResetFram() {
    return SendFresh(NonVolatileMemory, Operation::Reset);
}

bool OemDeviceObject::RequestSetPumpHead(const QString& head) {
    ProtocolMessage message = FreshRequest(PumpHead, Operation::Set);
    const QByteArray text = head.toLocal8Bit();
    halyard::protocol::PayloadWriter writer = message.Writer();
    const bool complete = writer.WriteBytes(reinterpret_cast<const uint8_t*>(text.constData()),
                                            static_cast<std::size_t>(text.size())) &&
                          writer.Write(uint8_t{0});
    writer.Close();
    if (!complete) {
        LogWriteFailure("RequestSetPumpHead");
        return false;
    }
    return Messaging().Send(message);
}

bool OemDeviceObject::RequestSetPlecPortCliEnable(uint8_t enable) {
    ProtocolMessage message = FreshRequest(PlecPortCliEnable, Operation::Set);
    halyard::protocol::PayloadWriter writer = message.Writer();
    const bool complete = writer.Write(enable);
    writer.Close();
    if (!complete) {
        LogWriteFailure("RequestSetPlecPortCliEnable");
        return false;
    }
    return Messaging().Send(message);
}

bool OemDeviceObject::HandlePumpRequest(const ProtocolMessage& message) {
    ReplyInvalidMessageData(message);
    return true;
}

// A reset of the memory that times out is reported as a failed reset, so that its caller is not
// left waiting.
bool OemDeviceObject::HandleTimeout(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
    case Operation::GetAll:
        emit getTimedOut(message.attribute);
        break;
    case Operation::Set:
        emit setTimedOut(message.attribute);
        break;
    case Operation::Reset:
        emit receivedResetFramAck(false);
        break;
    default:
        break;
    }
    return true;
}

// Answers are handled by operation whatever their type: a refused get fails to read, a refused
// set or reset reports its failure.
bool OemDeviceObject::HandleResponse(const ProtocolMessage& message) {
    return HandleAnswer(message);
}
bool OemDeviceObject::HandleRefusal(const ProtocolMessage& message) {
    return HandleAnswer(message);
}
bool OemDeviceObject::HandleUnknownType(const ProtocolMessage& message) {
    return HandleAnswer(message);
}

bool OemDeviceObject::HandleAnswer(const ProtocolMessage& message) {
    const bool accepted = message.type == Type::AckStatus && message.status == Status::Success;
    switch (message.operation) {
    case Operation::Get:
        return HandleGetResponse(message);
    case Operation::GetAll:
        return EmitDecoded(message, &OemDeviceObject::receivedPumpDetails, "HandleGetAllResponse",
                           ReadPumpDetails);
    case Operation::Set:
        emit receivedSetAck(accepted, message.attribute,
                            accepted ? Status::Success : message.status);
        return true;
    case Operation::Reset:
        emit receivedResetFramAck(accepted && message.attribute == NonVolatileMemory);
        return true;
    default:
        ReplyInvalidOperation(message);
        return true;
    }
}

bool OemDeviceObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case PumpHead:
        return EmitDecoded(message, &OemDeviceObject::receivedPumpHead,
                           "HandleGetPumpHeadResponse");
    case PumpHeads:
        return EmitDecoded(message, &OemDeviceObject::receivedPumpHeads,
                           "HandleGetPumpHeadsResponse", ReadPumpHeads);
    case PlecPortCliEnable:
        return EmitDecoded(message, &OemDeviceObject::receivedCliEnableAck,
                           "HandleGetPlecPortCliEnableResponse");
    case ProductDescription:
        EmitProductDescription(message);
        return true;
    default:
        return false;
    }
}

// Reported whether or not it could be read: a description without its NUL is reported as a
// failure with an empty text, and is not logged.
void OemDeviceObject::EmitProductDescription(const ProtocolMessage& message) {
    PayloadReader reader = message.Reader();
    objects::PumpDetails details;
    const bool success =
        reader.ReadString(details.productDescription.data(), details.productDescription.size());
    if (success) {
        details.productDescriptionLength =
            std::char_traits<char>::length(details.productDescription.data());
    } else {
        details.productDescription.fill('\0');
    }
    emit receivedProductDescription(success, details);
}

} // namespace communication::objects
