#include "PumpAnalogFilterNumSamplesBase.h"

namespace communication {

using objects::AnalogFilterObject;

PumpAnalogFilterNumSamplesBase::PumpAnalogFilterNumSamplesBase(
    ProtocolObjectContainer& container, uint8_t attribute, const char* name, GetRequest getRequest,
    SetRequest setRequest, RefusedText getRefused, RefusedText setRefused)
    : SettableValue(container, attribute, name) {
    setGetRequest(getRefused, getRequest);
    // Setting and re-sending go through onSetNumSamples, so both log as it.
    // A count the pump's 32-bit field cannot hold goes as its largest, which the pump refuses.
    setSetRequest({setRefused, setRefused}, [this, setRequest](const size_t& numSamples) {
        return (proxy().*setRequest)(wire::clamped<uint32_t>(numSamples));
    });
    connect(&proxy(), &AnalogFilterObject::ackGetNumSamples, this,
            &PumpAnalogFilterNumSamplesBase::onGetNumSamples);
    connect(&proxy(), &AnalogFilterObject::ackSetNumSamples, this,
            &PumpAnalogFilterNumSamplesBase::onSetNumSamplesAck);
}

void PumpAnalogFilterNumSamplesBase::setNumSamples(size_t numSamples) {
    set(numSamples);
}

void PumpAnalogFilterNumSamplesBase::onGetNumSamples(uint8_t attribute, size_t numSamples) {
    if (attribute != this->attribute()) {
        return;
    }
    onAckGetValue(attribute);
    emit numSamplesChanged(numSamples);
}

void PumpAnalogFilterNumSamplesBase::onSetNumSamplesAck(uint8_t attribute, bool success) {
    if (attribute != this->attribute()) {
        return;
    }
    if (!success) {
        BWL_LOG_WARN("onSetNumSamples", QStringLiteral("onSetNumSamples, FAIL"));
        return;
    }
    onAckSetValue(attribute);
    readBack(attribute);
}

} // namespace communication
