#pragma once

#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"

#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/SystemInterface.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <vector>

/// The real link below the values, without a serial port: the message layer, the request log on
/// a clock the test moves, and the proxy container. Every message the link sends is captured
/// and parsed, and the test answers as the pump would.
class LinkHarness {
public:
    using Message = halyard::protocol::ProtocolMessage;
    using Operation = halyard::protocol::message::Operation;

    LinkHarness();

    communication::ProtocolObjectContainer& container() { return mContainer; }

    /// The messages sent so far, oldest first.
    const std::vector<Message>& sent() const { return mOut.messages; }
    const Message& lastSent() const { return mOut.messages.back(); }
    void clearSent() { mOut.messages.clear(); }
    /// Makes the link queue refuse (or take again) whatever is sent.
    void refuseSends(bool refuse) { mOut.refuse = refuse; }
    std::size_t countSent(uint8_t object, uint8_t attribute, Operation operation) const;

    /// The pump accepts `request`, answering with `payload`.
    void acknowledge(const Message& request, std::initializer_list<uint8_t> payload = {});
    void acknowledge(const Message& request, const std::vector<uint8_t>& payload);
    /// The pump refuses `request`.
    void refuse(const Message& request);
    /// The pump sends an update of a subscribed attribute.
    void update(uint8_t object, uint8_t instance, uint8_t attribute,
                const std::vector<uint8_t>& payload);
    /// Lets every outstanding request time out.
    void expireRequests();

    /// Little-endian payload bytes of a value, as the pump sends them.
    template <typename T>
    static std::vector<uint8_t> bytesOf(T value) {
        std::vector<uint8_t> bytes(sizeof(T));
        std::memcpy(bytes.data(), &value, sizeof(T));
        return bytes;
    }

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
        std::vector<Message> messages;
        bool refuse = false;
    };

    void receive(const Message& message);

    Clock mClock;
    CapturingOut mOut;
    halyard::protocol::ProtocolRequestLog mRequestLog;
    std::array<std::uint8_t, 2048> mTransmitBuffer{};
    halyard::protocol::Protocol mProtocol;
    communication::ProtocolObjectContainer mContainer;
};
