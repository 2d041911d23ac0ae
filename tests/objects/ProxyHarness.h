#pragma once

#include "Common/Protocol/PayloadOutHandler.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/SystemInterface.h"

#include <QByteArray>
#include <QList>

#include <array>
#include <cstdint>
#include <cstring>

namespace objectstest {

/// A clock the test moves by hand.
class ManualSystem final : public halyard::device::SystemInterface {
public:
    std::uint64_t ElapsedMilliseconds() const override { return mNow; }
    void Delay(std::uint32_t milliseconds) override { mNow += milliseconds; }
    void DebugPrint(const char* /*text*/) override {}

private:
    std::uint64_t mNow = 1000;
};

/// Keeps every serialised message the message layer hands out.
class CapturingOut final : public halyard::protocol::PayloadOutHandler {
public:
    bool PayloadOut(const std::uint8_t* data, std::size_t length) override {
        messages.append(
            QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(length)));
        return true;
    }
    QList<QByteArray> messages;
};

/// The real message layer and request log around the proxies under test, with the line replaced
/// by a recorder: tests check the bytes of each request exactly and feed answers, pump requests
/// and time-outs through the same receive path the link uses.
class ProxyHarness {
public:
    using Status = halyard::protocol::message::Status;
    using Type = halyard::protocol::message::Type;

    ProxyHarness();

    halyard::protocol::Protocol& protocol() { return mProtocol; }
    void add(halyard::protocol::ProtocolMessageHandler& handler) {
        mProtocol.RegisterMessageHandler(&handler);
    }

    int sentCount() const { return static_cast<int>(mOut.messages.size()); }
    /// The message sent last (empty when none), and all of them since the last clear.
    QByteArray lastSent() const {
        return mOut.messages.isEmpty() ? QByteArray() : mOut.messages.last();
    }
    QList<QByteArray> sent() const { return mOut.messages; }
    void clearSent() { mOut.messages.clear(); }

    /// Answers the request sent last, by its id: an AckStatus (or another type) with a status
    /// and optionally a payload. Returns the receive path's result.
    Status answer(Type type, Status status, const QByteArray& payload = {});
    Status ack(const QByteArray& payload = {}) {
        return answer(Type::AckStatus, Status::Success, payload);
    }
    Status refuse(Status status = Status::Failed) { return answer(Type::NakStatus, status); }
    /// Lets every outstanding request time out.
    void timeOut();
    /// A request from the pump with id 0x40; returns the receive path's result. The proxy's reply,
    /// if any, is then lastSent().
    Status pumpRequest(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                       std::uint8_t operation, const QByteArray& payload = {});

    std::size_t outstanding() const { return mLog.OutstandingCount(); }

private:
    Status receive(const QByteArray& bytes);

    ManualSystem mSystem;
    halyard::protocol::ProtocolRequestLog mLog;
    std::array<std::uint8_t, 2048> mTransmitBuffer{};
    halyard::protocol::Protocol mProtocol;
    CapturingOut mOut;
};

/// Bytes from hex text; spaces are ignored ("00 00 02 02").
inline QByteArray hex(const char* text) {
    return QByteArray::fromHex(text);
}

/// Little-endian bytes of a value.
template <typename T>
QByteArray le(T value) {
    QByteArray bytes(sizeof(T), '\0');
    std::memcpy(bytes.data(), &value, sizeof(T));
    return bytes;
}

} // namespace objectstest
