#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The prime object (object 2, instance 2): prime input state and prime speed.
class PrimeSimObject final : public SimObject {
public:
    PrimeSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
