#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterObject.h"

namespace communication {

/// Fast stream (every 30 ms) of one analog input filter's input, output and their variances.
class PumpAnalogFilterDataBase : public ProxyValue<objects::AnalogFilterObject> {
    Q_OBJECT

signals:
    void filterDataChanged(communication::objects::AnalogFilterData data);

public slots:
    void onUpdateFilterData(uint8_t attribute,
                            const communication::objects::AnalogFilterData& data) {
        if (attribute != this->attribute()) {
            return;
        }
        // The filter object swallows the pump's subscribe answers; data arriving is the proof
        // that the subscription holds, so it clears the subscribe time-outs instead.
        onAckSubscribe(true, attribute);
        emit filterDataChanged(data);
    }

protected:
    PumpAnalogFilterDataBase(ProtocolObjectContainer& container, uint8_t attribute,
                             const char* name)
        : ProxyValue(container, attribute, name, {30, false}) {
        connect(&proxy(), &objects::AnalogFilterObject::updateFilterData, this,
                &PumpAnalogFilterDataBase::onUpdateFilterData);
    }
};

} // namespace communication
