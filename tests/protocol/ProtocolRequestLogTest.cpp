#include "TestSupport.h"

#include "Common/Protocol/ProtocolRequestLog.h"

#include <gtest/gtest.h>

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
        ProtocolMessage request = MakeRequest(object, instance, 3, Operation::Set, 0xEE);
        EXPECT_EQ(log.AddRequestHeader(request), kRequestLogged);
        return request.id;
    }

    /// Matches an Ack for `id`; true when the id was free.
    bool Answer(std::uint8_t id) {
        ProtocolMessage answer = MakeResponse(id, Type::AckStatus);
        return log.MatchResponse(answer);
    }

    /// Scans for time-outs at `now` and returns the ids reported by this scan.
    std::vector<int> TimedOutAt(std::uint64_t now) {
        system.now = now;
        receiver.received.clear();
        log.CheckTimeouts(receiver);
        std::vector<int> ids;
        for (const ProtocolMessage& timeout : receiver.received) {
            ids.push_back(timeout.id);
        }
        return ids;
    }

    FakeSystem system;
    ProtocolRequestLog log{100, system};
    RecordingReceiver receiver;
};

TEST_F(ProtocolRequestLogTest, HandsOutTheLowestFreeIdAndRestoresTheHeader) {
    EXPECT_EQ(Log(0x10), 0);
    EXPECT_EQ(Log(0x11), 1);

    ProtocolMessage answer = MakeResponse(0, Type::AckStatus);
    EXPECT_FALSE(log.MatchResponse(answer));
    EXPECT_EQ(Describe(answer), "00 AckStatus Success=00 for 10/00/03 Set=02");
    EXPECT_EQ(log.OutstandingCount(), 1u);
    EXPECT_TRUE(Answer(0)); // the second answer to the same id

    // A response for a free id changes nothing.
    ProtocolMessage stray = MakeResponse(5, Type::AckStatus);
    stray.object = 0x77;
    EXPECT_TRUE(log.MatchResponse(stray));
    EXPECT_EQ(stray.object, 0x77);
    EXPECT_EQ(log.OutstandingCount(), 1u);

    EXPECT_EQ(Log(0x12), 0); // reused at once
    EXPECT_EQ(Log(0x13), 2);

    ProtocolMessage unknownRaw;
    unknownRaw.type = Type::Request;
    unknownRaw.SetOperationRaw(0x40);
    ASSERT_EQ(log.AddRequestHeader(unknownRaw), kRequestLogged);
    ProtocolMessage itsAnswer = MakeResponse(unknownRaw.id, Type::AckStatus);
    EXPECT_FALSE(log.MatchResponse(itsAnswer));
    EXPECT_EQ(Describe(itsAnswer), "03 AckStatus Success=00 for 00/00/00 OutOfRange=40");
}

TEST_F(ProtocolRequestLogTest, ReportsARequestOnlyWhenOlderThanTheTimeout) {
    system.now = 1000;
    const std::uint8_t id = Log(0x21, 4);
    system.now = 1050;
    Log(0x22);

    EXPECT_EQ(TimedOutAt(1100), std::vector<int>{});
    EXPECT_EQ(TimedOutAt(1101), std::vector<int>{id});
    const ProtocolMessage& timeout = receiver.received.at(0);
    EXPECT_EQ(timeout.type, Type::NakStatus);
    EXPECT_EQ(timeout.status, Status::RequestAckTimeout);
    EXPECT_EQ(timeout.statusRaw, 10);
    EXPECT_EQ(timeout.payloadLength, 0);

    // The scan leaves freeing to the receiver, so an unmatched report repeats; both requests are
    // reported in id order once the second is old enough.
    EXPECT_EQ(TimedOutAt(1151), (std::vector<int>{0, 1}));
    EXPECT_EQ(log.TimeoutInterval(), 100u);
}

TEST_F(ProtocolRequestLogTest, KeepsTheAgeRightAcrossTheClockWrap) {
    constexpr std::uint64_t kWrap = std::uint64_t{1} << 32;
    system.now = kWrap - 40;
    Log(0x10);
    EXPECT_EQ(TimedOutAt(kWrap - 1), std::vector<int>{}); // before the wrap, not yet due
    EXPECT_EQ(TimedOutAt(kWrap + 60), std::vector<int>{});
    EXPECT_EQ(TimedOutAt(kWrap + 61), std::vector<int>{0});

    // A request logged after the wrap is not taken for an ancient one.
    EXPECT_FALSE(Answer(0));
    Log(0x10);
    EXPECT_EQ(TimedOutAt(kWrap + 100), std::vector<int>{});
}

} // namespace
} // namespace halyard::protocol::test
