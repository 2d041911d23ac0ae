#include "LinkHarness.h"

#include "Common/Protocol/MessageCodec.h"

#include <algorithm>
#include <stdexcept>

namespace testsupport {

using halyard::protocol::message::Parse;
using halyard::protocol::message::ParseResult;

namespace {
constexpr std::uint32_t kTimeoutMs = 100;
constexpr std::uint8_t kPumpRequestId = 0x40;

QByteArray withPayload(QByteArray bytes, const QByteArray& payload) {
    if (!payload.isEmpty()) {
        bytes.append(le(static_cast<std::uint16_t>(payload.size())));
        bytes.append(payload);
    }
    return bytes;
}

QByteArray toBytes(const std::vector<std::uint8_t>& payload) {
    return QByteArray(reinterpret_cast<const char*>(payload.data()),
                      static_cast<qsizetype>(payload.size()));
}
} // namespace

LinkHarness::LinkHarness()
    : mLog(kTimeoutMs, mClock)
    , mProtocol(mTransmitBuffer.data(), mTransmitBuffer.size(), mLog) {
    mProtocol.SetPayloadOutHandler(&mOut);
}

bool LinkHarness::CapturingOut::PayloadOut(const std::uint8_t* data, std::size_t length) {
    if (refuse) {
        return false;
    }
    Message message;
    if (Parse(data, length, message) != ParseResult::Ok) {
        throw std::runtime_error("the link sent a message that does not parse");
    }
    bytes.append(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(length)));
    messages.push_back(message);
    return true;
}

std::size_t LinkHarness::countSent(std::uint8_t object, std::uint8_t attribute,
                                   Operation operation) const {
    return static_cast<std::size_t>(
        std::count_if(mOut.messages.begin(), mOut.messages.end(), [&](const Message& m) {
            return m.type == Type::Request && m.object == object && m.attribute == attribute &&
                   m.operation == operation;
        }));
}

void LinkHarness::clearSent() {
    mOut.bytes.clear();
    mOut.messages.clear();
}

LinkHarness::Status LinkHarness::answerId(std::uint8_t id, Type type, Status status,
                                          const QByteArray& payload) {
    QByteArray bytes;
    bytes.append(static_cast<char>(id));
    bytes.append(static_cast<char>(type));
    if (type != Type::Nak) {
        bytes.append(static_cast<char>(status));
    }
    return receive(withPayload(bytes, payload));
}

LinkHarness::Status LinkHarness::answer(Type type, Status status, const QByteArray& payload) {
    const std::uint8_t id =
        mOut.bytes.isEmpty() ? std::uint8_t{0} : static_cast<std::uint8_t>(lastBytes().at(0));
    return answerId(id, type, status, payload);
}

void LinkHarness::acknowledge(const Message& request, const std::vector<std::uint8_t>& payload) {
    answerId(request.id, Type::AckStatus, Status::Success, toBytes(payload));
}

void LinkHarness::refuse(const Message& request) {
    answerId(request.id, Type::NakStatus, Status::Failed, {});
}

LinkHarness::Status LinkHarness::pumpRequest(std::uint8_t object, std::uint8_t instance,
                                             std::uint8_t attribute, std::uint8_t operation,
                                             const QByteArray& payload) {
    QByteArray bytes;
    for (const std::uint8_t byte :
         {kPumpRequestId, std::uint8_t{0}, object, instance, attribute, operation}) {
        bytes.append(static_cast<char>(byte));
    }
    return receive(withPayload(bytes, payload));
}

void LinkHarness::update(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                         const std::vector<std::uint8_t>& payload) {
    pumpRequest(object, instance, attribute, static_cast<std::uint8_t>(Operation::Update),
                toBytes(payload));
}

void LinkHarness::timeOut() {
    mClock.now += mLog.TimeoutInterval() + 1;
    mLog.CheckTimeouts(mProtocol);
}

LinkHarness::Status LinkHarness::receive(const QByteArray& bytes) {
    return mProtocol.ReceiveBytes(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                  static_cast<std::int32_t>(bytes.size()));
}

} // namespace testsupport
