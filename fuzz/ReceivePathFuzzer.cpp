// The whole receive path as the comms object drives it: received bytes, in reads of sizes the
// input chooses (also far larger than the receive buffer), go through the library's
// ReceiveStream, CobsTransport's DataIn and Decode, into Protocol::ReceiveBytes, which
// dispatches to protocol objects that read their payloads and answer, and matches responses to
// requests waiting in the request log. Time passes between reads, so time-outs fire as well.
//
// Input: the first byte seeds the read sizes and the clock steps; the rest is the line.

#include "FuzzCheck.h"

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/MessageCodec.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolBaseObject.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/ReceiveStream.h"

#include <cstdint>
#include <vector>

using namespace halyard;
using namespace halyard::protocol;
using message::Operation;
using message::Status;
using message::Type;

namespace {

constexpr std::size_t kBufferSize = 2048;
constexpr std::uint32_t kTimeoutMs = 100;

class FuzzSystem final : public device::SystemInterface {
public:
    std::uint64_t ElapsedMilliseconds() const override { return now; }
    void Delay(std::uint32_t milliseconds) override { now += milliseconds; }
    void DebugPrint(const char*) override {}

    std::uint64_t now = (std::uint64_t{1} << 32) - 500; // wraps during longer inputs
};

/// The line: every message the library sends must be one that parses back whole.
class CheckingLine final : public PayloadOutHandler {
public:
    bool PayloadOut(const std::uint8_t* data, std::size_t length) override {
        FUZZ_CHECK(length >= 2 && length <= kBufferSize);
        ProtocolMessage parsed;
        FUZZ_CHECK(message::Parse(data, length, parsed) == message::ParseResult::Ok);
        return true;
    }
};

/// A protocol object as the application has them: reads typed fields out of the payload and
/// answers with the reply helpers; re-sends a timed-out request once.
class FuzzObject final : public ProtocolMessageHandler, public ProtocolBaseObject {
public:
    FuzzObject(ProtocolInterface& protocol, std::uint8_t objectId, std::uint8_t instance)
        : ProtocolMessageHandler(objectId, instance)
        , ProtocolBaseObject(protocol) {}

    bool Handle(const ProtocolMessage& message) override {
        FUZZ_CHECK(message.object == ObjectId() && message.instance == Instance());
        FUZZ_CHECK(message.payloadLength <= kMaxPayloadLength);
        if (message.type == Type::Request) {
            return HandleRequest(message);
        }
        FUZZ_CHECK(message.type == Type::AckStatus || message.type == Type::NakStatus);
        if (message.status == Status::RequestAckTimeout && retries < 4) {
            ++retries;
            ProtocolMessage retry;
            retry.type = Type::Request;
            retry.object = ObjectId();
            retry.instance = Instance();
            retry.attribute = message.attribute;
            retry.SetOperationRaw(message.operationRaw);
            Messaging().Send(retry);
        }
        return message.status == Status::Success;
    }

private:
    bool HandleRequest(const ProtocolMessage& message) {
        PayloadReader reader = message.Reader();
        switch (message.operation) {
        case Operation::Get:
            return ReplySuccess(message);
        case Operation::Set: {
            std::uint16_t setting = 0;
            float rate = 0;
            char label[16];
            if (!reader.Read(setting) || !reader.Read(rate) ||
                !reader.ReadString(label, sizeof label)) {
                return ReplyInvalidMessageData(message);
            }
            return ReplySuccess(message);
        }
        case Operation::Update: {
            std::int32_t value = 0;
            std::uint64_t stamp = 0;
            while (reader.Read(value, ByteOrder::BigEndian) && reader.Read(stamp)) {
            }
            return reader.Remaining() == 0;
        }
        case Operation::Sub:
            return message.attribute < 8 ? ReplySuccess(message) : ReplyInvalidAttribute(message);
        default:
            return ReplyInvalidOperation(message);
        }
    }

    int retries = 0;
};

/// A small, fixed pseudo-random sequence from the input's first byte.
class Steps {
public:
    explicit Steps(std::uint8_t seed) : mState(0x9E3779B9u ^ seed) {}
    std::uint32_t Next() {
        mState ^= mState << 13;
        mState ^= mState >> 17;
        mState ^= mState << 5;
        return mState;
    }

private:
    std::uint32_t mState;
};

bool IsReceiveResult(Status status) {
    switch (status) {
    case Status::Success:
    case Status::Failed:
    case Status::InvalidObject:
    case Status::InvalidInstance:
    case Status::InvalidMessage:
    case Status::InvalidMessageId:
    case Status::NakReceived:
        return true;
    default:
        return false;
    }
}

/// Requests of this side that wait for the pump's answer, so that responses on the line find
/// entries (ids 0 to 5) to match.
void SendOutstandingRequests(Protocol& protocol) {
    const std::uint8_t targets[][3] = {
        {0x10, 0, 0}, {0x10, 1, 2}, {0x20, 0, 6}, {0x42, 0, 0}, {0x10, 9, 1}, {0x20, 0, 0x33},
    };
    for (const auto& [object, instance, operation] : targets) {
        ProtocolMessage request;
        request.type = Type::Request;
        request.object = object;
        request.instance = instance;
        request.attribute = 1;
        request.SetOperationRaw(operation);
        FUZZ_CHECK(protocol.Send(request));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    // Buffers of exactly the comms object's sizes, each its own allocation, so that the address
    // sanitizer catches any access past one of them.
    std::vector<std::uint8_t> ring(kBufferSize);
    std::vector<std::uint8_t> scratch(kBufferSize);
    std::vector<std::uint8_t> decoded(kBufferSize);
    std::vector<std::uint8_t> transmit(kBufferSize);

    FuzzSystem system;
    ProtocolRequestLog log(kTimeoutMs, system);
    Protocol protocol(transmit.data(), transmit.size(), log);
    CheckingLine line;
    protocol.SetPayloadOutHandler(&line);
    FuzzObject motor(protocol, 0x10, 0);
    FuzzObject motorTwo(protocol, 0x10, 1);
    FuzzObject sensor(protocol, 0x20, 0);
    protocol.RegisterMessageHandler(&motor);
    protocol.RegisterMessageHandler(&motorTwo);
    protocol.RegisterMessageHandler(&sensor);
    SendOutstandingRequests(protocol);

    CobsTransport transport(ring.data(), ring.size(), scratch.data(), scratch.size());
    const std::uint8_t delimiter = 0;
    transport.DataIn(&delimiter, 1);

    Steps steps(data[0]);
    const std::size_t maxRead = data[0] == 0 ? size : 1u + data[0] % 64u;
    std::size_t position = 1;
    std::uint64_t nextScan = system.now + kTimeoutMs;
    while (position < size) {
        const std::size_t read = std::min<std::size_t>(1 + steps.Next() % maxRead, size - position);
        std::size_t frames = 0;
        const std::size_t lost = ReceiveStream(
            transport, data + position, read, decoded.data(), decoded.size(),
            [&](std::int32_t length) {
                FUZZ_CHECK(++frames <= read + kBufferSize); // every result consumes bytes
                FUZZ_CHECK(length >= -1 && length <= static_cast<std::int32_t>(kBufferSize));
                // As the comms object does, a malformed frame (-1) goes on to the message layer.
                FUZZ_CHECK(IsReceiveResult(protocol.ReceiveBytes(decoded.data(), length)));
            });
        position += read;
        FUZZ_CHECK(lost == 0); // a read of any size is buffered whole
        FUZZ_CHECK(transport.BufferedBytes() <= kBufferSize - 1);
        // The comms object scans on a timer of the time-out's own interval.
        system.now += steps.Next() % 80;
        if (system.now >= nextScan) {
            nextScan = system.now + kTimeoutMs;
            log.CheckTimeouts(protocol);
        }
    }

    // Every request still waiting is answered by its time-out within two scan intervals; the
    // objects' retries are bounded, so the log runs empty.
    for (int round = 0; round < 16 && log.OutstandingCount() != 0; ++round) {
        system.now += 2 * kTimeoutMs;
        log.CheckTimeouts(protocol);
    }
    FUZZ_CHECK(log.OutstandingCount() == 0);
    return 0;
}
