#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The logger object (object 7, instance 1): the event log, read entry by entry and cleared.
class LoggerSimObject final : public SimObject {
public:
    LoggerSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
