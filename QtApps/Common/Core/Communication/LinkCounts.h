#pragma once

#include "Common/Protocol/MessageTypes.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace communication {

/// Errors of the line and the frame layer, as the link health tells them apart.
enum class TransportError : std::uint8_t {
    MalformedFrame, ///< a received frame failed COBS decoding or was too long
    TransmitFailed, ///< a frame could not be queued or written ("error writing to device", ...)
    PortError,      ///< the serial port reported an error
};
inline constexpr std::size_t kTransportErrorKinds = 3;

/// Received messages the message layer did not handle cleanly are counted by their status;
/// a status byte past the enumeration counts in the last slot.
inline constexpr std::size_t kProtocolErrorKinds = halyard::protocol::message::kLastStatus + 2;

constexpr std::size_t ProtocolErrorIndex(halyard::protocol::message::Status status) {
    const auto value = static_cast<std::size_t>(status);
    return value < kProtocolErrorKinds - 1 ? value : kProtocolErrorKinds - 1;
}

/// What the link did over one interval (a second, or a minute of seconds added up).
struct LinkCounts {
    std::uint64_t bytesIn = 0;
    std::uint64_t bytesOut = 0;
    std::uint64_t framesIn = 0;
    std::uint64_t framesOut = 0;
    /// Requests the request log gave up on (each time-out of each attempt).
    std::uint32_t timeouts = 0;
    /// Requests sent again after their time-out.
    std::uint32_t retries = 0;
    std::array<std::uint32_t, kTransportErrorKinds> transportErrors{};
    std::array<std::uint32_t, kProtocolErrorKinds> protocolErrors{};
    /// Keep-alive round trips measured, their sum and the longest, in milliseconds.
    std::uint32_t pings = 0;
    std::uint64_t pingTotalMs = 0;
    std::uint32_t pingWorstMs = 0;

    std::uint32_t errors() const {
        std::uint32_t total = 0;
        for (const std::uint32_t count : transportErrors) {
            total += count;
        }
        for (const std::uint32_t count : protocolErrors) {
            total += count;
        }
        return total;
    }

    LinkCounts& operator+=(const LinkCounts& other) {
        bytesIn += other.bytesIn;
        bytesOut += other.bytesOut;
        framesIn += other.framesIn;
        framesOut += other.framesOut;
        timeouts += other.timeouts;
        retries += other.retries;
        for (std::size_t i = 0; i < kTransportErrorKinds; ++i) {
            transportErrors[i] += other.transportErrors[i];
        }
        for (std::size_t i = 0; i < kProtocolErrorKinds; ++i) {
            protocolErrors[i] += other.protocolErrors[i];
        }
        pings += other.pings;
        pingTotalMs += other.pingTotalMs;
        pingWorstMs = pingWorstMs > other.pingWorstMs ? pingWorstMs : other.pingWorstMs;
        return *this;
    }
};

} // namespace communication
