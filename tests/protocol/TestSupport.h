#pragma once

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/PayloadOutHandler.h"
#include "Common/Protocol/ProtocolMessageHandler.h"
#include "Common/Protocol/SystemInterface.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

namespace halyard::protocol::test {

using Bytes = std::vector<std::uint8_t>;

/// "02 11 02 22" -> {0x02, 0x11, 0x02, 0x22}.
inline Bytes Hex(const std::string& text) {
    Bytes bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != ' ') {
            bytes.push_back(
                static_cast<std::uint8_t>(std::stoul(text.substr(i++, 2), nullptr, 16)));
        }
    }
    return bytes;
}

inline std::string ToHex(const std::uint8_t* data, std::size_t length) {
    std::string text;
    char byte[4];
    for (std::size_t i = 0; i < length; ++i) {
        std::snprintf(byte, sizeof byte, i == 0 ? "%02X" : " %02X", data[i]);
        text += byte;
    }
    return text;
}
inline std::string ToHex(const Bytes& bytes) {
    return ToHex(bytes.data(), bytes.size());
}

inline Bytes Concat(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

/// `length` bytes without a zero, counting up from `first + 1` and skipping 0x00 on the wrap.
inline Bytes NonZeroRun(std::size_t length, std::uint8_t first = 1) {
    Bytes bytes(length);
    for (std::size_t i = 0; i < length; ++i) {
        bytes[i] = static_cast<std::uint8_t>(1 + (first + i) % 255);
    }
    return bytes;
}

inline ProtocolMessage MakeRequest(std::uint8_t object, std::uint8_t instance,
                                   std::uint8_t attribute = 9,
                                   message::Operation operation = message::Operation::Get,
                                   std::uint8_t id = 0) {
    ProtocolMessage request;
    request.id = id;
    request.type = message::Type::Request;
    request.object = object;
    request.instance = instance;
    request.attribute = attribute;
    request.SetOperation(operation);
    return request;
}

inline ProtocolMessage MakeResponse(std::uint8_t id, message::Type type,
                                    message::Status status = message::Status::Success) {
    ProtocolMessage response;
    response.id = id;
    response.type = type;
    response.SetStatus(status);
    return response;
}

/// The fields that travel for the message's type, raw bytes in hex: "05 Request 10/01/02 Set=02",
/// "07 NakStatus InvalidAttribute=04 for 10/01/02 Set=02 [AA]" (a response with the header of
/// the request it answers), "09 Nak".
inline std::string Describe(const ProtocolMessage& m) {
    char header[64];
    std::snprintf(header, sizeof header, "%02X/%02X/%02X %s=%02X", m.object, m.instance,
                  m.attribute, message::OperationName(m.operation), m.operationRaw);
    char text[160];
    std::snprintf(text, sizeof text, "%02X %s", m.id, message::TypeName(m.type));
    std::string described = text;
    if (m.type == message::Type::Request) {
        described += std::string(" ") + header;
    } else if (m.type == message::Type::AckStatus || m.type == message::Type::NakStatus) {
        std::snprintf(text, sizeof text, " %s=%02X for %s", message::StatusName(m.status),
                      m.statusRaw, header);
        described += text;
    }
    return m.payloadLength == 0 ? described
                                : described + " [" + ToHex(m.payload.data(), m.payloadLength) + "]";
}

/// A platform whose clock the test sets and whose debug output it reads back.
class FakeSystem final : public device::SystemInterface {
public:
    std::uint64_t ElapsedMilliseconds() const override { return now; }
    void Delay(std::uint32_t milliseconds) override { now += milliseconds; }
    void DebugPrint(const char* text) override { printed += text; }

    std::uint64_t now = 0;
    std::string printed;
};

/// Records every serialised message handed to the line; can be told to refuse.
class RecordingPayloadOut final : public PayloadOutHandler {
public:
    bool PayloadOut(const std::uint8_t* data, std::size_t length) override {
        sent.emplace_back(data, data + length);
        return accept;
    }

    std::vector<Bytes> sent;
    bool accept = true;
};

/// A handler that keeps a copy of each message it is given and answers with `result`.
class RecordingHandler final : public ProtocolMessageHandler {
public:
    RecordingHandler(std::uint8_t objectId, std::uint8_t instance)
        : ProtocolMessageHandler(objectId, instance) {}

    bool Handle(const ProtocolMessage& message) override {
        received.push_back(message);
        return result;
    }

    /// Each message received, described.
    std::vector<std::string> Seen() const {
        std::vector<std::string> seen;
        for (const ProtocolMessage& message : received) {
            seen.push_back(Describe(message));
        }
        return seen;
    }

    std::vector<ProtocolMessage> received;
    bool result = true;
};

/// The framing end of the line as the comms object builds it: 2048-byte receive ring, scratch
/// and decode output.
struct LineEnd {
    Bytes Frame(const Bytes& message) {
        Bytes frame(message.size() + message.size() / 254 + 8);
        const std::int32_t length =
            transport.Encode(frame.data(), frame.size(), message.data(), message.size());
        frame.resize(static_cast<std::size_t>(length > 0 ? length : 0));
        return frame;
    }

    /// A fresh transport, primed with the one 0x00 that lets the very first frame be found.
    void Reset(bool primed = true) {
        transport = CobsTransport(ring.data(), ring.size(), scratch.data(), scratch.size());
        if (primed) {
            const std::uint8_t delimiter = 0;
            transport.DataIn(&delimiter, 1);
        }
    }

    std::int32_t Decode() { return transport.Decode(out.data(), out.size()); }

    std::array<std::uint8_t, 2048> ring{};
    std::array<std::uint8_t, 2048> scratch{};
    std::array<std::uint8_t, 2048> out{};
    CobsTransport transport{ring.data(), ring.size(), scratch.data(), scratch.size()};
};

} // namespace halyard::protocol::test
