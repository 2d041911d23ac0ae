#pragma once

#include "QtApps/Common/Model/PumpValues/SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterObject.h"

namespace communication {

/// The number of samples over which an analog input filter averages; read and set.
class PumpAnalogFilterNumSamplesBase : public SettableValue<objects::AnalogFilterObject, size_t> {
    Q_OBJECT

signals:
    void numSamplesChanged(size_t numSamples);

public slots:
    void getNumSamples() { get(); }
    void setNumSamples(size_t numSamples);
    void onGetNumSamples(uint8_t attribute, size_t numSamples);
    /// Sends the requested number (again).
    void onSetNumSamples() { retrySet(); }
    void onSetNumSamplesAck(uint8_t attribute, bool success);

protected:
    using GetRequest = bool (objects::AnalogFilterObject::*)();
    using SetRequest = bool (objects::AnalogFilterObject::*)(uint32_t);

    PumpAnalogFilterNumSamplesBase(ProtocolObjectContainer& container, uint8_t attribute,
                                   const char* name, GetRequest getRequest, SetRequest setRequest,
                                   RefusedText getRefused, RefusedText setRefused);
};

} // namespace communication
