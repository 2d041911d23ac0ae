#pragma once

#include "SimObject.h"

#include <functional>

namespace simulator {

class PumpModel;

/// The device object (object 1, instance 1): device type and application firmware version in
/// one get-all, and the reset that restarts the pump.
class DeviceSimObject final : public SimObject {
public:
    DeviceSimObject(const Context& context, PumpModel& model, std::function<void()> restart);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
    std::function<void()> mRestart;
};

} // namespace simulator
