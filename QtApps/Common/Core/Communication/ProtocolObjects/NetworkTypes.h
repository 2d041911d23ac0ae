#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace halyard::protocol {

/// IP configuration of the network module. The addresses are held in host order (192.168.0.10
/// is 0xC0A8000A); on the wire they are the protocol's only big-endian fields.
struct IpConfig {
    bool dhcpEnabled = false;
    std::uint32_t ipAddress = 0;
    std::uint32_t subnetMask = 0;
    std::uint32_t gateway = 0;

    static constexpr std::size_t kWireSize = 13;

    friend bool operator==(const IpConfig& a, const IpConfig& b) {
        return a.dhcpEnabled == b.dhcpEnabled && a.ipAddress == b.ipAddress &&
               a.subnetMask == b.subnetMask && a.gateway == b.gateway;
    }
};

/// Kind of network module fitted, as the pump reports it.
enum class AnybusModuleType : std::uint8_t {};

inline constexpr std::size_t MacAddressLength = 6;
using MacAddress = std::array<std::uint8_t, MacAddressLength>;

} // namespace halyard::protocol
