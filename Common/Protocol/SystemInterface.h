#pragma once

#include <cstdint>

namespace halyard::device {

/// What the protocol library needs of the platform.
class SystemInterface {
public:
    virtual ~SystemInterface() = default;

    /// Monotonic milliseconds since the implementation was created.
    virtual std::uint64_t ElapsedMilliseconds() const = 0;
    virtual void Delay(std::uint32_t milliseconds) = 0;
    virtual void DebugPrint(const char* text) = 0;

protected:
    SystemInterface() = default;
    SystemInterface(const SystemInterface&) = default;
    SystemInterface& operator=(const SystemInterface&) = default;
};

} // namespace halyard::device
