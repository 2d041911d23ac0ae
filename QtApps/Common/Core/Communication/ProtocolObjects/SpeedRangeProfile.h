#pragma once

#include <QObject>

#include <cstdint>

namespace communication::objects {

/// A speed range of the speed commander (or its limits): the input range mapped onto the speed
/// range, five u32, 20 bytes on the wire in field order. The screens read the fields by name.
struct QSpeedRangeProfile {
    // The screens' numbers are doubles, which hold every 32-bit field exactly.
    Q_GADGET
    Q_PROPERTY(double MinimumSpeedDrpm READ minimumSpeedForScreens CONSTANT)
    Q_PROPERTY(double MaximumSpeedDrpm READ maximumSpeedForScreens CONSTANT)
    Q_PROPERTY(double MinimumInput READ minimumInputForScreens CONSTANT)
    Q_PROPERTY(double MaximumInput READ maximumInputForScreens CONSTANT)
    Q_PROPERTY(double Hysteresis READ hysteresisForScreens CONSTANT)

public:
    double minimumSpeedForScreens() const { return MinimumSpeedDrpm; }
    double maximumSpeedForScreens() const { return MaximumSpeedDrpm; }
    double minimumInputForScreens() const { return MinimumInput; }
    double maximumInputForScreens() const { return MaximumInput; }
    double hysteresisForScreens() const { return Hysteresis; }

    std::uint32_t MinimumSpeedDrpm = 0;
    std::uint32_t MaximumSpeedDrpm = 0;
    std::uint32_t MinimumInput = 0;
    std::uint32_t MaximumInput = 0;
    std::uint32_t Hysteresis = 0;

    friend bool operator==(const QSpeedRangeProfile& a, const QSpeedRangeProfile& b) {
        return a.MinimumSpeedDrpm == b.MinimumSpeedDrpm &&
               a.MaximumSpeedDrpm == b.MaximumSpeedDrpm && a.MinimumInput == b.MinimumInput &&
               a.MaximumInput == b.MaximumInput && a.Hysteresis == b.Hysteresis;
    }
};

} // namespace communication::objects
