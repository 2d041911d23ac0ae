#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The pump object (object 2, instance 1): faults and their acknowledgement, control input,
/// application speed with its enable and override, maximum speed, cover, direction and power.
class PumpSimObject final : public SimObject {
public:
    PumpSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    void onSet(const Message& request);
    void setFault(const Message& request);

    PumpModel& mModel;
};

} // namespace simulator
