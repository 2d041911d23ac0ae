#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorStepperObject.h"

namespace communication {

/// The stepper drive's target current, amperes, for each torque index.
class PumpTorqueTargets final : public ReadableValue<objects::MotorStepperObject> {
    Q_OBJECT

public:
    explicit PumpTorqueTargets(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::MotorStepperObject::TorqueTargets, "TorqueTargets") {
        setGetRequest("getTorqueTargets, can't send GetTorqueTargets",
                      &objects::MotorStepperObject::GetTorqueTargets);
        forwardResponse(&objects::MotorStepperObject::getTorqueTargetsResponse,
                        &PumpTorqueTargets::onGetTorqueTargetsResponse);
    }

signals:
    void getTorqueTargetsResponse(QList<float> targets);

public slots:
    void getTorqueTargets() { get(); }
    void onGetTorqueTargetsResponse(const QList<float>& targets) {
        emit getTorqueTargetsResponse(targets);
    }
};

} // namespace communication
