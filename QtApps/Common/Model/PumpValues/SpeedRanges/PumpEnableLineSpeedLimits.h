#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// The range within which the enable-line speed may be set, tenths of rpm.
class PumpEnableLineSpeedLimits final : public ReadableValue<objects::SpeedCommanderObject> {
    Q_OBJECT

public:
    explicit PumpEnableLineSpeedLimits(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::SpeedCommanderObject::EnableLineSpeedLimits,
                        "EnableLineSpeedLimits") {
        setGetRequest("getEnableLineSpeedLimits, can't send request",
                      [this] { return proxy().Get(attribute()); });
        forwardResponse(&objects::SpeedCommanderObject::getEnableLineSpeedLimitsResponse,
                        &PumpEnableLineSpeedLimits::onGetEnableLineSpeedLimitsResponse);
    }

signals:
    /// The answer to getEnableLineSpeedLimits (a signal, in spite of its name).
    void onGetEnableLineSpeedLimitsResponse(uint32_t lowerLimitDrpm, uint32_t upperLimitDrpm);

public slots:
    void getEnableLineSpeedLimits() { get(); }
};

} // namespace communication
