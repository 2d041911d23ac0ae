#pragma once

#include "Common/Protocol/SystemInterface.h"

#include <QElapsedTimer>

namespace wrappers {

/// The platform services the protocol library asks for: a monotonic clock started at
/// construction, a delay and a debug print into the application's log.
class SystemWrapper final : public halyard::device::SystemInterface {
public:
    SystemWrapper();

    std::uint64_t ElapsedMilliseconds() const override;
    void Delay(std::uint32_t milliseconds) override;
    void DebugPrint(const char* text) override;

private:
    QElapsedTimer mClock;
};

} // namespace wrappers
