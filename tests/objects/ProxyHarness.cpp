#include "ProxyHarness.h"

namespace objectstest {

using halyard::protocol::message::Status;
using halyard::protocol::message::Type;

ProxyHarness::ProxyHarness()
    : mLog(100, mSystem)
    , mProtocol(mTransmitBuffer.data(), mTransmitBuffer.size(), mLog) {
    mProtocol.SetPayloadOutHandler(&mOut);
}

Status ProxyHarness::receive(const QByteArray& bytes) {
    return mProtocol.ReceiveBytes(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                  static_cast<std::int32_t>(bytes.size()));
}

Status ProxyHarness::answer(Type type, Status status, const QByteArray& payload) {
    QByteArray bytes;
    bytes.append(lastSent().isEmpty() ? '\0' : lastSent().at(0));
    bytes.append(static_cast<char>(type));
    if (type != Type::Nak) {
        bytes.append(static_cast<char>(status));
    }
    if (!payload.isEmpty()) {
        bytes.append(le(static_cast<std::uint16_t>(payload.size())));
        bytes.append(payload);
    }
    return receive(bytes);
}

void ProxyHarness::timeOut() {
    mSystem.Delay(mLog.TimeoutInterval() + 1);
    mLog.CheckTimeouts(mProtocol);
}

Status ProxyHarness::pumpRequest(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                                 std::uint8_t operation, const QByteArray& payload) {
    QByteArray bytes;
    for (const std::uint8_t byte :
         {std::uint8_t{0x40}, std::uint8_t{0}, object, instance, attribute, operation}) {
        bytes.append(static_cast<char>(byte));
    }
    if (!payload.isEmpty()) {
        bytes.append(le(static_cast<std::uint16_t>(payload.size())));
        bytes.append(payload);
    }
    return receive(bytes);
}

} // namespace objectstest
