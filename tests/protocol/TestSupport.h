#pragma once

#include "Common/Protocol/PayloadOutHandler.h"
#include "Common/Protocol/ProtocolBaseObject.h"
#include "Common/Protocol/ProtocolMessageHandler.h"
#include "Common/Protocol/SystemInterface.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace halyard::protocol::test {

using Bytes = std::vector<std::uint8_t>;

/// "02 11 02 22" -> {0x02, 0x11, 0x02, 0x22}.
inline Bytes Hex(const std::string& text) {
    Bytes bytes;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == ' ') {
            ++i;
            continue;
        }
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(text.substr(i, 2), nullptr, 16)));
        i += 2;
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

    std::vector<ProtocolMessage> received;
    bool result = true;
};

} // namespace halyard::protocol::test
