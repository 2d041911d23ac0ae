#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"

namespace communication {

/// The range within which acceleration and deceleration may be set.
class PumpCelerationLimits final : public ReadableValue<objects::MotorObject> {
    Q_OBJECT

public:
    explicit PumpCelerationLimits(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::MotorObject::CelerationLimits, "CelerationLimits") {
        setGetRequest("getLimits, can't send request", &objects::MotorObject::GetCelerationLimits);
        forwardResponse(&objects::MotorObject::getCelerationLimitsResponse,
                        &PumpCelerationLimits::onGetCelerationLimitsResponse);
    }

signals:
    void getLimitsResponse(communication::objects::CelerationLimits limits);

public slots:
    void getLimits() { get(); }
    void onGetCelerationLimitsResponse(const communication::objects::CelerationLimits& limits) {
        emit getLimitsResponse(limits);
    }
};

} // namespace communication
