#include "MessageTypes.h"

#include <array>

namespace halyard::protocol::message {
namespace {

constexpr const char* kOutOfRangeName = "OutOfRange";

constexpr std::array<const char*, kLastType + 1> kTypeNames{"Request", "AckStatus", "Nak",
                                                            "NakStatus"};

constexpr std::array<const char*, kLastOperation + 1> kOperationNames{
    "Get",   "GetAll", "Set", "SetAll", "SetDef", "Reset", "Sub",
    "Unsub", "Update", "Ack", "Verify", "Start",  "Stop"};

constexpr std::array<const char*, kLastStatus + 1> kStatusNames{"Success",
                                                                "Failed",
                                                                "InvalidObject",
                                                                "InvalidInstance",
                                                                "InvalidAttribute",
                                                                "InvalidOperation",
                                                                "InvalidMessage",
                                                                "InvalidMessageId",
                                                                "InvalidMessageData",
                                                                "NakReceived",
                                                                "RequestAckTimeout",
                                                                "MaxSubscriptionsExceeded",
                                                                "NoSubscription",
                                                                "InvalidSubscribeRequest"};

constexpr std::array<const char*, kLastStatus + 1> kStatusShortNames{
    "Success",  "Failed",     "InvObj",  "InvInst",       "InvAtt",      "InvOp", "InvMsg",
    "InvMsgId", "InvMsgData", "NakRecv", "ReqAckTimeOut", "MaxSubsExcd", "NoSub", "InvSubReq"};

template <std::size_t N, typename Enum>
const char* NameOf(const std::array<const char*, N>& names, Enum value) {
    const auto index = static_cast<std::size_t>(value);
    return index < N ? names[index] : kOutOfRangeName;
}

} // namespace

const char* TypeName(Type type) {
    return NameOf(kTypeNames, type);
}
const char* OperationName(Operation operation) {
    return NameOf(kOperationNames, operation);
}
const char* StatusName(Status status) {
    return NameOf(kStatusNames, status);
}
const char* StatusShortName(Status status) {
    return NameOf(kStatusShortNames, status);
}

} // namespace halyard::protocol::message
