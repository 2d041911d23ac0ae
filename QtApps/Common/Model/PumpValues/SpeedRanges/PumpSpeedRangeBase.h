#pragma once

#include "QtApps/Common/Model/PumpValues/SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// One speed range profile of an analog input: the two points of the line along which the
/// pump turns the input into a speed. Read, set as a whole and restored to its default; a
/// set or a default that the pump acknowledges is read again.
class PumpSpeedRangeBase
    : public SettableValue<objects::SpeedCommanderObject, objects::QSpeedRangeProfile> {
    Q_OBJECT

signals:
    void getSpeedRangeResponse(communication::objects::QSpeedRangeProfile profile);

public slots:
    void getSpeedRange() { get(); }
    void setSpeedRange(communication::objects::QSpeedRangeProfile profile) { set(profile); }
    void setSpeedRangeDefault() { setDefault(); }
    void setSpeedRangeAck(uint8_t attribute) { readBack(attribute); }

private slots:
    void retrySetSpeedRange() { retrySet(); }

protected:
    PumpSpeedRangeBase(ProtocolObjectContainer& container, uint8_t attribute, const char* name);
};

} // namespace communication
