#include "PumpSettings.h"

namespace simulator {

bool SpeedRangeProfile::fitsWithin(const SpeedRangeProfile& limits) const {
    return minimumSpeedDrpm >= limits.minimumSpeedDrpm &&
           maximumSpeedDrpm <= limits.maximumSpeedDrpm && minimumSpeedDrpm <= maximumSpeedDrpm &&
           minimumInput >= limits.minimumInput && maximumInput <= limits.maximumInput &&
           minimumInput < maximumInput && hysteresis <= limits.hysteresis;
}

} // namespace simulator
