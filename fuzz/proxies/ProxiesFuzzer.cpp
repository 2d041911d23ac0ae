// Every protocol object proxy of the application on the real message layer and request log,
// fed arbitrary messages through Protocol::Receive: pump requests, and answers and time-outs of
// requests waiting in the request log. Signals are emitted without receivers, so no event loop
// (and no QCoreApplication) is needed.
//
// Input: [proxy] [type] [attribute] [operation] [status] [flags] [object] [instance] payload...
//   proxy      picks the proxy whose object and instance the message is addressed to
//   flags      bit 0: address the message to [object] [instance] instead
//              bit 1: let the request time out instead of answering it
//              bit 2: subscribe or unsubscribe [attribute] on the proxy first
//              bit 3: send a firmware piece first and let it time out [status] times

#include "../FuzzCheck.h"

#include "Common/Protocol/MessageCodec.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogCalibrationObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/DeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareUpdateObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorStepperObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PrimeObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolBandwidthObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolTestObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

#include <QByteArrayView>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

using namespace communication::objects;
using namespace halyard::protocol;
using message::Type;

namespace {

constexpr std::size_t kBufferSize = 2048;
constexpr std::size_t kHeaderSize = 8;

class FuzzSystem final : public halyard::device::SystemInterface {
public:
    std::uint64_t ElapsedMilliseconds() const override { return now; }
    void Delay(std::uint32_t milliseconds) override { now += milliseconds; }
    void DebugPrint(const char*) override {}

    std::uint64_t now = 1000;
};

/// The line: every message a proxy sends must parse back whole.
class CheckingLine final : public PayloadOutHandler {
public:
    bool PayloadOut(const std::uint8_t* data, std::size_t length) override {
        FUZZ_CHECK(length >= 2 && length <= kBufferSize);
        ProtocolMessage parsed;
        FUZZ_CHECK(message::Parse(data, length, parsed) == message::ParseResult::Ok);
        sent.push_back(parsed);
        return true;
    }
    std::vector<ProtocolMessage> sent;
};

/// One message layer with every proxy registered, as the application builds them.
struct Link {
    FuzzSystem system;
    ProtocolRequestLog log{100, system};
    std::array<std::uint8_t, kBufferSize> buffer{};
    Protocol protocol{buffer.data(), buffer.size(), log};
    CheckingLine line;

    ProtocolObject session{protocol};
    ProtocolTestObject test{protocol};
    ProtocolBandwidthObject bandwidth{protocol};
    DeviceObject device{protocol};
    OemDeviceObject oem{protocol};
    FirmwareUpdateObject firmware{protocol};
    PumpObject pump{protocol};
    PrimeObject prime{protocol};
    MotorObject motor{protocol};
    MotorStepperObject stepper{protocol};
    AnalogInputObject analogInput{protocol};
    AnalogCalibrationObject calibration{protocol};
    AnalogFilterObject filter{protocol};
    SpeedCommanderObject speedCommander{protocol};
    NetworkObject network{protocol};
    LoggerObject logger{protocol};

    std::vector<ProtocolMessageHandler*> handlers{
        &session, &test,           &bandwidth, &device,  &oem,         &firmware,
        &pump,    &prime,          &motor,     &stepper, &analogInput, &calibration,
        &filter,  &speedCommander, &network,   &logger};
    std::vector<ProtocolObjectSubscribeInterface*> subscribers{
        &pump, &prime, &motor, &analogInput, &filter, &speedCommander, &network};

    Link() {
        protocol.SetPayloadOutHandler(&line);
        for (ProtocolMessageHandler* handler : handlers) {
            protocol.RegisterMessageHandler(handler);
        }
    }

    void TimeOut() {
        system.now += log.TimeoutInterval() + 1;
        log.CheckTimeouts(protocol);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHeaderSize) {
        return 0;
    }
    auto link = std::make_unique<Link>();
    const std::uint8_t flags = data[5];
    const ProtocolMessageHandler* target = link->handlers[data[0] % link->handlers.size()];

    if ((flags & 0x04U) != 0) {
        ProtocolObjectSubscribeInterface* subscriber =
            link->subscribers[data[0] % link->subscribers.size()];
        if ((data[4] & 1U) != 0) {
            subscriber->Subscribe(data[2], data[4], (data[3] & 1U) != 0);
        } else {
            subscriber->Unsubscribe(data[2]);
        }
    }
    if ((flags & 0x08U) != 0) {
        const std::size_t length = std::min<std::size_t>(size - kHeaderSize, 1400);
        link->firmware.SendFirmwareData(
            data[2], data[4], QByteArrayView(data + kHeaderSize, static_cast<qsizetype>(length)));
        for (int i = 0; i < (data[4] & 7); ++i) {
            link->TimeOut();
        }
    }

    ProtocolMessage incoming;
    incoming.object = (flags & 0x01U) != 0 ? data[6] : target->ObjectId();
    incoming.instance = (flags & 0x01U) != 0 ? data[7] : target->Instance();
    incoming.attribute = data[2];
    incoming.SetOperationRaw(data[3]);
    const std::size_t payloadLength = std::min(size - kHeaderSize, kMaxPayloadLength);
    std::memcpy(incoming.payload.data(), data + kHeaderSize, payloadLength);
    incoming.payloadLength = static_cast<std::uint16_t>(payloadLength);

    const auto type = static_cast<Type>(data[1] & 3U);
    link->line.sent.clear();
    if (type == Type::Request) {
        incoming.type = Type::Request;
        incoming.id = 0x40;
        link->protocol.Receive(incoming);
        // Answers to the pump's requests never carry a payload.
        for (const ProtocolMessage& reply : link->line.sent) {
            if (reply.type != Type::Request) {
                FUZZ_CHECK(reply.id == 0x40 && reply.payloadLength == 0);
            }
        }
        return 0;
    }

    // An answer needs a request waiting for it in the log.
    ProtocolMessage request;
    request.type = Type::Request;
    request.object = incoming.object;
    request.instance = incoming.instance;
    request.attribute = incoming.attribute;
    request.SetOperationRaw(incoming.operationRaw);
    FUZZ_CHECK(link->log.AddRequestHeader(request) == kRequestLogged);
    if ((flags & 0x02U) != 0) {
        link->TimeOut();
        return 0;
    }
    incoming.id = request.id;
    incoming.type = type;
    incoming.SetStatusRaw(data[4]);
    link->protocol.Receive(incoming);
    return 0;
}
