#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The analog calibration object (object 4, instance 3): slope and offset of three channels.
class AnalogCalibrationSimObject final : public SimObject {
public:
    AnalogCalibrationSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
