#include "PumpControlInput.h"

namespace communication {

using objects::PumpObject;

PumpControlInput::PumpControlInput(ProtocolObjectContainer& container)
    : SettableValue(container, PumpObject::ControlInput, "ControlInput", {1000, true}) {
    setGetRequest("getControlInput, can't send GetControlInput",
                  &PumpObject::RequestGetControlInput);
    setSetRequest({"setControlInput, can't send SetControlInput",
                   "retrySetControlInput, can't send SetControlInput"},
                  &PumpObject::RequestSetControlInput, wire::codeOf<halyard::pump::ControlInput>);
    readBackOn(&PumpControlInput::onSetControlInputAck);
    forwardResponse(&PumpObject::getControlInputResponse,
                    &PumpControlInput::onGetControlInputResponse);
}

} // namespace communication
