#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The OEM device object (object 1, instance 2): pump details, product description, the fitted
/// pump head and the catalogue of heads, the port setting, and the reset of the non-volatile
/// settings.
class OemDeviceSimObject final : public SimObject {
public:
    OemDeviceSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    void setPumpHead(const Message& request);

    PumpModel& mModel;
};

} // namespace simulator
