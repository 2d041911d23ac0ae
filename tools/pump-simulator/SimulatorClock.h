#pragma once

#include "Common/Protocol/SystemInterface.h"

#include <QElapsedTimer>

namespace simulator {

/// The pump's clock as the protocol library sees it: milliseconds since power-on. Debug output
/// of the library goes to the simulator's log on standard error.
class SimulatorClock final : public halyard::device::SystemInterface {
public:
    SimulatorClock();

    std::uint64_t ElapsedMilliseconds() const override;
    void Delay(std::uint32_t milliseconds) override;
    void DebugPrint(const char* text) override;

private:
    QElapsedTimer mTimer;
};

} // namespace simulator
