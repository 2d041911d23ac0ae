#include "PumpFaults.h"

namespace communication {

using objects::PumpObject;

PumpFaults::PumpFaults(ProtocolObjectContainer& container)
    : ProxyValue(container, PumpObject::Faults, "Faults", {1000, true}) {
    qRegisterMetaType<QList<FaultStatus>>("QList<communication::PumpFaults::FaultStatus>");
    forward(&PumpObject::updateFaults, &PumpFaults::onUpdateFaults);
    forward(&PumpObject::ackSetFaultResult, &PumpFaults::onAckSet);
}

void PumpFaults::ackFaults() {
    send("ackFaults: Could not send request", &PumpObject::RequestAckFaults);
}

void PumpFaults::set(MotorFaultType type) {
    send("set: Could not send request", &PumpObject::RequestSetMotorFault, wire::codeOf(type));
}

void PumpFaults::onUpdateFaults(uint32_t faults) {
    // Bit 0 of the pump's word is not a fault, and bits past the table are ignored.
    const uint32_t shifted = faults >> 1;
    QList<FaultStatus> faultList;
    faultList.reserve(kFaultCount);
    for (uint index = 0; index < kFaultCount; ++index) {
        faultList.append({index, ((shifted >> index) & 1U) != 0});
    }
    emit faultsChanged(faultList);
}

} // namespace communication
