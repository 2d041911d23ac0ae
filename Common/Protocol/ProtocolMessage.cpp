#include "ProtocolMessage.h"

namespace halyard::protocol {

void ProtocolMessage::SetOperation(message::Operation value) {
    operation = value;
    operationRaw = static_cast<std::uint8_t>(value);
}

void ProtocolMessage::SetOperationRaw(std::uint8_t raw) {
    operationRaw = raw;
    operation = message::ToOperation(raw);
}

void ProtocolMessage::SetStatus(message::Status value) {
    status = value;
    statusRaw = static_cast<std::uint8_t>(value);
}

void ProtocolMessage::SetStatusRaw(std::uint8_t raw) {
    statusRaw = raw;
    status = message::ToStatus(raw);
}

} // namespace halyard::protocol
