#include "TestSupport.h"

#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"

#include <gtest/gtest.h>

#include <array>

namespace halyard::protocol::test {
namespace {

using message::Operation;
using message::Status;
using message::Type;

/// Stands in for the message layer during a time-out scan: records what the scan hands over.
class RecordingReceiver final : public ProtocolMessagingInterface {
public:
    bool Send(ProtocolMessage&) override { return false; }
    Status Receive(ProtocolMessage& message) override {
        received.push_back(message);
        return Status::Success;
    }

    std::vector<ProtocolMessage> received;
};

class ProtocolRequestLogTest : public ::testing::Test {
protected:
    /// Logs a request for (object, instance) and returns the id it got.
    std::uint8_t Log(std::uint8_t object, std::uint8_t instance = 0) {
        ProtocolMessage request;
        request.type = Type::Request;
        request.object = object;
        request.instance = instance;
        request.attribute = 3;
        request.SetOperation(Operation::Set);
        request.id = 0xEE;
        EXPECT_EQ(log.AddRequestHeader(request), kRequestLogged);
        return request.id;
    }

    ProtocolMessage Response(std::uint8_t id) {
        ProtocolMessage response;
        response.id = id;
        response.type = Type::AckStatus;
        return response;
    }

    FakeSystem system;
    ProtocolRequestLog log{100, system};
    RecordingReceiver receiver;
};

TEST_F(ProtocolRequestLogTest, HandsOutTheLowestFreeIdAndRestoresTheHeader) {
    EXPECT_EQ(Log(0x10), 0);
    EXPECT_EQ(Log(0x11), 1);

    ProtocolMessage answer = Response(0);
    EXPECT_FALSE(log.MatchResponse(answer));
    EXPECT_EQ(answer.object, 0x10);
    EXPECT_EQ(answer.attribute, 3);
    EXPECT_EQ(answer.operation, Operation::Set);
    EXPECT_EQ(answer.operationRaw, 2);
    EXPECT_EQ(log.OutstandingCount(), 1u);

    EXPECT_EQ(Log(0x12), 0); // reused at once
    EXPECT_EQ(Log(0x13), 2);

    ProtocolMessage unknownRaw;
    unknownRaw.type = Type::Request;
    unknownRaw.SetOperationRaw(0x40);
    ASSERT_EQ(log.AddRequestHeader(unknownRaw), kRequestLogged);
    ProtocolMessage itsAnswer = Response(unknownRaw.id);
    EXPECT_FALSE(log.MatchResponse(itsAnswer));
    EXPECT_EQ(itsAnswer.operation, Operation::OutOfRange);
    EXPECT_EQ(itsAnswer.operationRaw, 0x40);
}

TEST_F(ProtocolRequestLogTest, AResponseForAFreeIdChangesNothing) {
    Log(0x10);
    ProtocolMessage stray = Response(5);
    stray.object = 0x77;
    EXPECT_TRUE(log.MatchResponse(stray));
    EXPECT_EQ(stray.object, 0x77);
    EXPECT_EQ(log.OutstandingCount(), 1u);

    ProtocolMessage answer = Response(0);
    EXPECT_FALSE(log.MatchResponse(answer));
    EXPECT_TRUE(log.MatchResponse(answer)); // the second answer to the same id
}

// The 257th outstanding request is refused with the log's own text and never reaches the line.
TEST_F(ProtocolRequestLogTest, RefusesRequestsWhenFull) {
    std::array<std::uint8_t, 2048> transmit{};
    Protocol protocol(transmit.data(), transmit.size(), log);
    RecordingPayloadOut line;
    protocol.SetPayloadOutHandler(&line);

    for (int i = 0; i < 256; ++i) {
        ProtocolMessage request;
        request.type = Type::Request;
        ASSERT_TRUE(protocol.Send(request));
        ASSERT_EQ(request.id, i);
    }
    EXPECT_EQ(system.printed, "");

    ProtocolMessage refused;
    refused.type = Type::Request;
    EXPECT_EQ(log.AddRequestHeader(refused), kRequestLogFull);
    EXPECT_EQ(system.printed, "ProtocolRequestLog::AddRequestHeader: Request log full.\r\n");
    EXPECT_FALSE(protocol.Send(refused));
    EXPECT_EQ(line.sent.size(), 256u);

    log.Release(200);
    EXPECT_TRUE(protocol.Send(refused));
    EXPECT_EQ(refused.id, 200);
    protocol.ClearRequestLog();
    EXPECT_EQ(log.OutstandingCount(), 0u);
}

TEST_F(ProtocolRequestLogTest, ReportsARequestOnlyWhenOlderThanTheTimeout) {
    system.now = 1000;
    const std::uint8_t id = Log(0x21, 4);
    system.now = 1050;
    Log(0x22);

    system.now = 1100;
    log.CheckTimeouts(receiver);
    EXPECT_TRUE(receiver.received.empty());

    system.now = 1101;
    log.CheckTimeouts(receiver);
    ASSERT_EQ(receiver.received.size(), 1u);
    const ProtocolMessage& timeout = receiver.received[0];
    EXPECT_EQ(timeout.id, id);
    EXPECT_EQ(timeout.type, Type::NakStatus);
    EXPECT_EQ(timeout.status, Status::RequestAckTimeout);
    EXPECT_EQ(timeout.statusRaw, 10);
    EXPECT_EQ(timeout.payloadLength, 0);

    // The scan leaves freeing to the receiver, so an unmatched report repeats; both requests are
    // reported in id order once the second is old enough.
    system.now = 1151;
    log.CheckTimeouts(receiver);
    ASSERT_EQ(receiver.received.size(), 3u);
    EXPECT_EQ(receiver.received[1].id, 0);
    EXPECT_EQ(receiver.received[2].id, 1);
    EXPECT_EQ(log.TimeoutInterval(), 100u);
}

TEST_F(ProtocolRequestLogTest, KeepsTheAgeRightAcrossTheClockWrap) {
    constexpr std::uint64_t kWrap = std::uint64_t{1} << 32;
    system.now = kWrap - 40;
    Log(0x10);
    system.now = kWrap + 60;
    log.CheckTimeouts(receiver);
    EXPECT_TRUE(receiver.received.empty());
    system.now = kWrap + 61;
    log.CheckTimeouts(receiver);
    EXPECT_EQ(receiver.received.size(), 1u);

    // A request logged after the wrap is not taken for an ancient one.
    ProtocolMessage answer = Response(0);
    log.MatchResponse(answer);
    receiver.received.clear();
    Log(0x10);
    system.now = kWrap + 100;
    log.CheckTimeouts(receiver);
    EXPECT_TRUE(receiver.received.empty());
}

// Through the message layer the time-out reaches the requesting object as an answer to its own
// request, frees the id, and is reported once.
TEST_F(ProtocolRequestLogTest, ATimeoutReachesTheRequestingObjectOnce) {
    std::array<std::uint8_t, 2048> transmit{};
    Protocol protocol(transmit.data(), transmit.size(), log);
    RecordingPayloadOut line;
    RecordingHandler pumpHead(0x21, 4);
    protocol.SetPayloadOutHandler(&line);
    protocol.RegisterMessageHandler(&pumpHead);

    system.now = 1000;
    Log(0x21, 4);
    system.now = 1101;
    log.CheckTimeouts(protocol);
    log.CheckTimeouts(protocol);
    ASSERT_EQ(pumpHead.received.size(), 1u);
    const ProtocolMessage& seen = pumpHead.received[0];
    EXPECT_EQ(seen.type, Type::NakStatus);
    EXPECT_EQ(seen.status, Status::RequestAckTimeout);
    EXPECT_EQ(seen.object, 0x21);
    EXPECT_EQ(seen.instance, 4);
    EXPECT_EQ(seen.attribute, 3);
    EXPECT_EQ(seen.operation, Operation::Set);
    EXPECT_EQ(log.OutstandingCount(), 0u);
    EXPECT_TRUE(line.sent.empty()); // a time-out is made here and never sent

    // A late answer finds its entry free.
    const Bytes late = Hex("00 01 00");
    EXPECT_EQ(protocol.ReceiveBytes(late.data(), static_cast<std::int32_t>(late.size())),
              Status::InvalidMessageId);
    EXPECT_EQ(pumpHead.received.size(), 1u);
}

} // namespace
} // namespace halyard::protocol::test
