#include "LinkHarness.h"

#include "Common/Protocol/MessageCodec.h"

#include <algorithm>
#include <stdexcept>

using halyard::protocol::message::Parse;
using halyard::protocol::message::ParseResult;
using halyard::protocol::message::Serialise;
using halyard::protocol::message::SerialiseResult;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;

namespace {
constexpr std::uint32_t kTimeoutMs = 100;
}

LinkHarness::LinkHarness()
    : mRequestLog(kTimeoutMs, mClock)
    , mProtocol(mTransmitBuffer.data(), mTransmitBuffer.size(), mRequestLog)
    , mContainer(mProtocol) {
    mProtocol.SetPayloadOutHandler(&mOut);
}

bool LinkHarness::CapturingOut::PayloadOut(const std::uint8_t* data, std::size_t length) {
    if (refuse) {
        return false;
    }
    Message message;
    if (Parse(data, length, message) != ParseResult::Ok) {
        throw std::runtime_error("the link sent a message that does not parse");
    }
    messages.push_back(message);
    return true;
}

std::size_t LinkHarness::countSent(uint8_t object, uint8_t attribute, Operation operation) const {
    return static_cast<std::size_t>(
        std::count_if(mOut.messages.begin(), mOut.messages.end(), [&](const Message& m) {
            return m.type == Type::Request && m.object == object && m.attribute == attribute &&
                   m.operation == operation;
        }));
}

void LinkHarness::acknowledge(const Message& request, std::initializer_list<uint8_t> payload) {
    acknowledge(request, std::vector<uint8_t>(payload));
}

void LinkHarness::acknowledge(const Message& request, const std::vector<uint8_t>& payload) {
    Message answer;
    answer.id = request.id;
    answer.type = Type::AckStatus;
    answer.SetStatus(Status::Success);
    std::copy(payload.begin(), payload.end(), answer.payload.begin());
    answer.payloadLength = static_cast<std::uint16_t>(payload.size());
    receive(answer);
}

void LinkHarness::refuse(const Message& request) {
    Message answer;
    answer.id = request.id;
    answer.type = Type::NakStatus;
    answer.SetStatus(Status::Failed);
    receive(answer);
}

void LinkHarness::update(uint8_t object, uint8_t instance, uint8_t attribute,
                         const std::vector<uint8_t>& payload) {
    Message request;
    request.id = 200;
    request.type = Type::Request;
    request.object = object;
    request.instance = instance;
    request.attribute = attribute;
    request.SetOperation(Operation::Update);
    std::copy(payload.begin(), payload.end(), request.payload.begin());
    request.payloadLength = static_cast<std::uint16_t>(payload.size());
    receive(request);
}

void LinkHarness::expireRequests() {
    mClock.now += 2 * kTimeoutMs;
    mRequestLog.CheckTimeouts(mProtocol);
}

void LinkHarness::receive(const Message& message) {
    std::array<std::uint8_t, 2048> bytes{};
    std::size_t length = 0;
    if (Serialise(message, bytes.data(), bytes.size(), length) != SerialiseResult::Ok) {
        throw std::runtime_error("the test built a message that does not serialise");
    }
    mProtocol.ReceiveBytes(bytes.data(), static_cast<std::int32_t>(length));
}
