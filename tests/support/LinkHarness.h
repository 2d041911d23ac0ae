#pragma once

#include "Common/Protocol/PayloadOutHandler.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolMessage.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/SystemInterface.h"

#include <QByteArray>
#include <QList>

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace testsupport {

/// The real message layer and request log, on a clock the test moves, with the line replaced by
/// a recorder: every message sent is kept as bytes (for byte-exact checks) and parsed, and the
/// test answers, sends pump requests and lets requests time out through the same receive path
/// the link uses. Proxies under test register with `add`; a proxy container is built on
/// `protocol()`.
class LinkHarness {
public:
    using Message = halyard::protocol::ProtocolMessage;
    using Operation = halyard::protocol::message::Operation;
    using Status = halyard::protocol::message::Status;
    using Type = halyard::protocol::message::Type;

    LinkHarness();

    halyard::protocol::Protocol& protocol() { return mProtocol; }
    void add(halyard::protocol::ProtocolMessageHandler& handler) {
        mProtocol.RegisterMessageHandler(&handler);
    }

    /// What was sent since the last clear, oldest first: as bytes and parsed.
    int sentCount() const { return static_cast<int>(mOut.bytes.size()); }
    QList<QByteArray> sentBytes() const { return mOut.bytes; }
    /// The message sent last as bytes, empty when none.
    QByteArray lastBytes() const { return mOut.bytes.isEmpty() ? QByteArray() : mOut.bytes.last(); }
    const std::vector<Message>& sent() const { return mOut.messages; }
    const Message& lastSent() const { return mOut.messages.back(); }
    std::size_t countSent(std::uint8_t object, std::uint8_t attribute, Operation operation) const;
    void clearSent();
    /// Makes the link queue refuse (or take again) whatever is sent.
    void refuseSends(bool refuse) { mOut.refuse = refuse; }

    /// Answers the request sent last, by its id: an AckStatus (or another type) with a status
    /// and optionally a payload. Returns the receive path's result.
    Status answer(Type type, Status status, const QByteArray& payload = {});
    Status ack(const QByteArray& payload = {}) {
        return answer(Type::AckStatus, Status::Success, payload);
    }
    Status refuse(Status status = Status::Failed) { return answer(Type::NakStatus, status); }
    /// Answers `request`, which need not be the last one sent.
    void acknowledge(const Message& request, const std::vector<std::uint8_t>& payload = {});
    void refuse(const Message& request);

    /// A request from the pump with id 0x40; returns the receive path's result. The proxy's
    /// reply, if any, is then the last message sent.
    Status pumpRequest(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                       std::uint8_t operation, const QByteArray& payload = {});
    /// The pump sends an update of a subscribed attribute.
    void update(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                const std::vector<std::uint8_t>& payload);
    /// Lets every outstanding request time out.
    void timeOut();
    std::size_t outstanding() const { return mLog.OutstandingCount(); }

private:
    class Clock final : public halyard::device::SystemInterface {
    public:
        std::uint64_t ElapsedMilliseconds() const override { return now; }
        void Delay(std::uint32_t milliseconds) override { now += milliseconds; }
        void DebugPrint(const char* /*text*/) override {}
        std::uint64_t now = 1000;
    };
    class CapturingOut final : public halyard::protocol::PayloadOutHandler {
    public:
        bool PayloadOut(const std::uint8_t* data, std::size_t length) override;
        QList<QByteArray> bytes;
        std::vector<Message> messages;
        bool refuse = false;
    };

    Status receive(const QByteArray& bytes);
    Status answerId(std::uint8_t id, Type type, Status status, const QByteArray& payload);

    Clock mClock;
    CapturingOut mOut;
    halyard::protocol::ProtocolRequestLog mLog;
    std::array<std::uint8_t, 2048> mTransmitBuffer{};
    halyard::protocol::Protocol mProtocol;
};

/// Bytes from hex text; spaces are ignored ("00 00 02 02").
inline QByteArray hex(const char* text) {
    return QByteArray::fromHex(text);
}

/// Little-endian bytes of a value, as the pump sends them.
template <typename T>
QByteArray le(T value) {
    QByteArray bytes(static_cast<qsizetype>(sizeof(T)), '\0');
    std::memcpy(bytes.data(), &value, sizeof(T));
    return bytes;
}
template <typename T>
std::vector<std::uint8_t> bytesOf(T value) {
    std::vector<std::uint8_t> bytes(sizeof(T));
    std::memcpy(bytes.data(), &value, sizeof(T));
    return bytes;
}

} // namespace testsupport
