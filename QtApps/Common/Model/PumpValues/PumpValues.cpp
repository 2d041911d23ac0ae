#include "PumpValues.h"

namespace communication {

namespace {

// Braced initialisation creates the values strictly in the order of the list.
template <typename... Value>
std::tuple<Value*...> CreateValues(ProtocolObjectContainer& container,
                                   std::tuple<Value*...>* /*list*/) {
    return std::tuple<Value*...>{new Value(container)...};
}

} // namespace

PumpValues::PumpValues(ProtocolCommsInterface& comms)
    : QObject(&comms)
    , mValues(CreateValues(comms.protocolObjects(), static_cast<Values*>(nullptr))) {
    std::apply([this](auto*... value) { (value->setParent(this), ...); }, mValues);
}

} // namespace communication
