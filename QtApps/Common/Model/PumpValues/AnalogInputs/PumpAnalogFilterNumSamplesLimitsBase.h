#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterObject.h"

namespace communication {

/// The range within which a filter's number of samples may be set, read on request.
class PumpAnalogFilterNumSamplesLimitsBase : public ReadableValue<objects::AnalogFilterObject> {
    Q_OBJECT

signals:
    void numSamplesLimitsChanged(size_t minimum, size_t maximum);

public slots:
    void getNumSamplesLimits() { get(); }
    void onGetNumSamplesLimits(uint8_t attribute, size_t minimum, size_t maximum) {
        if (attribute == this->attribute()) {
            onAckGetValue(attribute);
            emit numSamplesLimitsChanged(minimum, maximum);
        }
    }

protected:
    PumpAnalogFilterNumSamplesLimitsBase(ProtocolObjectContainer& container, uint8_t attribute,
                                         const char* name,
                                         bool (objects::AnalogFilterObject::*getRequest)(),
                                         RefusedText getRefused)
        : ReadableValue(container, attribute, name) {
        setGetRequest(getRefused, getRequest);
        connect(&proxy(), &objects::AnalogFilterObject::ackGetNumSamplesLimits, this,
                &PumpAnalogFilterNumSamplesLimitsBase::onGetNumSamplesLimits);
    }
};

} // namespace communication
