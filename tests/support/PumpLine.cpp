#include "PumpLine.h"

#include "Common/Protocol/MessageCodec.h"
#include "Common/Protocol/ReceiveStream.h"

namespace testsupport {

using halyard::protocol::ProtocolMessage;
namespace message = halyard::protocol::message;

PumpLine::PumpLine(QObject* parent)
    : QObject(parent)
    , mTransport(mRing.data(), mRing.size(), mScratch.data(), mScratch.size()) {
    const std::uint8_t delimiter = 0x00;
    mTransport.DataIn(&delimiter, 1);
    connect(&mPty, &PtyPair::bytesArrived, this, &PumpLine::onBytes);
}

int PumpLine::countRequests(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                            message::Operation operation) const {
    int count = 0;
    for (const ProtocolMessage& m : mReceived) {
        count += (m.type == message::Type::Request && m.object == object &&
                  m.instance == instance && m.attribute == attribute && m.operation == operation)
                     ? 1
                     : 0;
    }
    return count;
}

QByteArray PumpLine::frame(const ProtocolMessage& m) {
    std::array<std::uint8_t, 2048> bytes{};
    std::array<std::uint8_t, 2048> framed{};
    std::size_t length = 0;
    if (message::Serialise(m, bytes.data(), bytes.size(), length) != message::SerialiseResult::Ok) {
        return {};
    }
    std::array<std::uint8_t, 2> ring{};
    std::array<std::uint8_t, 2> scratch{};
    halyard::protocol::CobsTransport encoder(ring.data(), ring.size(), scratch.data(),
                                             scratch.size());
    const std::int32_t n = encoder.Encode(framed.data(), framed.size(), bytes.data(), length);
    return n > 0 ? QByteArray(reinterpret_cast<const char*>(framed.data()), n) : QByteArray();
}

ProtocolMessage PumpLine::answer(const ProtocolMessage& request, message::Type type,
                                 message::Status status, const QByteArray& payload) {
    ProtocolMessage reply = request;
    reply.type = type;
    reply.SetStatus(status);
    reply.payloadLength = static_cast<std::uint16_t>(payload.size());
    std::copy(payload.begin(), payload.end(), reply.payload.begin());
    return reply;
}

void PumpLine::onBytes() {
    const QByteArray bytes = mPty.takeReceived();
    halyard::protocol::ReceiveStream(
        mTransport, reinterpret_cast<const std::uint8_t*>(bytes.constData()),
        static_cast<std::size_t>(bytes.size()), mFrame.data(), mFrame.size(),
        [this](std::int32_t length) {
            ProtocolMessage m;
            if (length < 0 || message::Parse(mFrame.data(), static_cast<std::size_t>(length), m) !=
                                  message::ParseResult::Ok) {
                ++mMalformed;
                return;
            }
            mReceived.append(m);
            if (mResponder) {
                mResponder(*this, m);
            }
            emit messageReceived();
        });
}

} // namespace testsupport
