#pragma once

#include "ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

namespace communication {

/// The highest application speed the pump accepts, tenths of rpm; read and streamed.
class PumpMaxApplicationSpeed final : public ReadableValue<objects::PumpObject> {
    Q_OBJECT

public:
    explicit PumpMaxApplicationSpeed(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::PumpObject::MaxApplicationSpeed, "MaxApplicationSpeed",
                        {1000, true}) {
        setGetRequest("getMaxApplicationSpeed, can't send GetMaxApplicationSpeed",
                      &objects::PumpObject::RequestGetMaxApplicationSpeed);
        forwardResponse(&objects::PumpObject::getMaxApplicationSpeedResponse,
                        &PumpMaxApplicationSpeed::onGetMaxApplicationSpeedResponse,
                        wire::clamped<int32_t, uint32_t>);
        forward(&objects::PumpObject::updateMaxApplicationSpeed,
                &PumpMaxApplicationSpeed::onUpdateMaxApplicationSpeed);
    }

signals:
    void getMaxApplicationSpeedResponse(int32_t maxApplicationSpeed);

public slots:
    void getMaxApplicationSpeed() { get(); }
    void onGetMaxApplicationSpeedResponse(int32_t maxApplicationSpeed) {
        BWL_LOG_INFO(
            "onGetMaxApplicationSpeedResponse",
            QStringLiteral("onGetMaxApplicationSpeedResponse %1").arg(maxApplicationSpeed));
        emit getMaxApplicationSpeedResponse(maxApplicationSpeed);
    }
    void onUpdateMaxApplicationSpeed(uint32_t maxApplicationSpeed) {
        BWL_LOG_INFO(
            "onUpdateMaxApplicationSpeed",
            QStringLiteral("onUpdateMaxApplicationSpeedResponse %1").arg(maxApplicationSpeed));
        emit getMaxApplicationSpeedResponse(wire::clamped<int32_t>(maxApplicationSpeed));
    }
};

} // namespace communication
