#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The speed commander (object 5, instance 1): speed ranges of the current, voltage and
/// frequency inputs with their limits and defaults, hysteresis, the enable-line speed, and the
/// published target speeds and enable-line state.
class SpeedCommanderSimObject final : public SimObject {
public:
    SpeedCommanderSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
