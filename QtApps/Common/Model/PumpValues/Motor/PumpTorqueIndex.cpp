#include "PumpTorqueIndex.h"

namespace communication {

using objects::MotorStepperObject;

PumpTorqueIndex::PumpTorqueIndex(ProtocolObjectContainer& container)
    : SettableValue(container, MotorStepperObject::TorqueIndex, "TorqueIndex")
    , mReset(container) {
    // A child, so that it moves with this value to another thread.
    mReset.setParent(this);
    setGetRequest("getTorqueIndex, can't send request", &MotorStepperObject::GetTorqueIndex);
    setSetRequest({"setTorqueIndex, can't send request", "retrySetTorqueIndex, can't send request"},
                  &MotorStepperObject::SetTorqueIndex);
    readBackOn(&PumpTorqueIndex::onSetTorqueIndexAck);
    forwardResponse(&MotorStepperObject::getTorqueIndexResponse,
                    &PumpTorqueIndex::onGetTorqueIndexResponse);
}

void PumpTorqueIndex::onGetTorqueIndexResponse(uint8_t index) {
    BWL_LOG_INFO("onGetTorqueIndexResponse",
                 QStringLiteral("onGetTorqueIndexResponse %1").arg(index));
    emit getTorqueIndexResponse(index);
}

void PumpTorqueIndex::onSetTorqueIndexAck(uint8_t attribute) {
    // No read-back: the pump is about to reboot, and reports the index again once it is up.
    if (attribute == this->attribute()) {
        mReset.reset();
    }
}

} // namespace communication
