#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The network object (object 6, instance 1) of a network pump: module type and version, MAC
/// address, IP configuration with its reset, link status and the file-system reset.
class NetworkSimObject final : public SimObject {
public:
    NetworkSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
