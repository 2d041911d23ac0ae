#include "TestSupport.h"

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace halyard::protocol::test {
namespace {

using message::Operation;
using message::Status;
using message::Type;

/// A protocol object that answers each request with the reply its attribute asks for.
class ReplyingObject final : public ProtocolMessageHandler, public ProtocolBaseObject {
public:
    ReplyingObject(ProtocolInterface& protocol, std::uint8_t objectId)
        : ProtocolMessageHandler(objectId, 0)
        , ProtocolBaseObject(protocol) {}

    bool Handle(const ProtocolMessage& message) override {
        switch (message.attribute) {
        case 0:
            return ReplySuccess(message);
        case 1:
            return ReplyInvalidAttribute(message);
        case 2:
            return ReplyInvalidOperation(message);
        default:
            return ReplyInvalidMessageData(message);
        }
    }
};

class ProtocolTest : public ::testing::Test {
protected:
    ProtocolTest() {
        protocol.SetPayloadOutHandler(&line);
        protocol.RegisterMessageHandler(&motor);
        protocol.RegisterMessageHandler(&motorTwo);
        protocol.RegisterMessageHandler(&sensor);
    }

    Status ReceiveHex(const char* hex) {
        const Bytes bytes = Hex(hex);
        return protocol.ReceiveBytes(bytes.data(), static_cast<std::int32_t>(bytes.size()));
    }

    std::string LastSent() const { return line.sent.empty() ? "" : ToHex(line.sent.back()); }

    std::size_t HandledCount() const {
        return motor.received.size() + motorTwo.received.size() + sensor.received.size();
    }

    ProtocolMessage Request(std::uint8_t object, std::uint8_t instance) {
        ProtocolMessage request;
        request.type = Type::Request;
        request.object = object;
        request.instance = instance;
        request.attribute = 9;
        request.SetOperation(Operation::Get);
        return request;
    }

    FakeSystem system;
    ProtocolRequestLog log{100, system};
    std::array<std::uint8_t, 2048> transmit{};
    Protocol protocol{transmit.data(), transmit.size(), log};
    RecordingPayloadOut line;
    RecordingHandler motor{0x10, 0};
    RecordingHandler motorTwo{0x10, 1};
    RecordingHandler sensor{0x20, 0};
};

TEST_F(ProtocolTest, DispatchesRequestsByObjectAndInstance) {
    EXPECT_EQ(ReceiveHex("05 00 10 01 02 06"), Status::Success);
    ASSERT_EQ(motorTwo.received.size(), 1u);
    EXPECT_EQ(motorTwo.received[0].operation, Operation::Sub);
    EXPECT_EQ(ReceiveHex("06 00 20 00 03 08 02 00 34 12"), Status::Success);
    ASSERT_EQ(sensor.received.size(), 1u);
    std::uint16_t value = 0;
    EXPECT_TRUE(sensor.received[0].Reader().Read(value));
    EXPECT_EQ(value, 0x1234);
    EXPECT_TRUE(motor.received.empty());

    sensor.result = false;
    EXPECT_EQ(ReceiveHex("07 00 20 00 03 08"), Status::Failed);
    EXPECT_TRUE(line.sent.empty()); // the object answers for itself, or not at all

    // The first registration of an (object, instance) pair wins.
    RecordingHandler shadow(0x20, 0);
    protocol.RegisterMessageHandler(&shadow);
    EXPECT_EQ(ReceiveHex("08 00 20 00 03 08"), Status::Failed);
    EXPECT_TRUE(shadow.received.empty());
}

TEST_F(ProtocolTest, RefusesUnknownObjectsAndInstancesOnTheLine) {
    EXPECT_EQ(ReceiveHex("07 00 42 00 01 00"), Status::InvalidObject);
    EXPECT_EQ(LastSent(), "07 03 02");

    // The refusal as it goes out on the line.
    std::array<std::uint8_t, 64> ring{};
    std::array<std::uint8_t, 64> scratch{};
    std::array<std::uint8_t, 64> frame{};
    CobsTransport transport(ring.data(), ring.size(), scratch.data(), scratch.size());
    const std::int32_t length = transport.Encode(frame.data(), frame.size(),
                                                 line.sent.back().data(), line.sent.back().size());
    ASSERT_GT(length, 0);
    EXPECT_EQ(ToHex(frame.data(), static_cast<std::size_t>(length)), "04 07 03 02 01 00");

    // A payload does not travel back with the refusal.
    EXPECT_EQ(ReceiveHex("08 00 10 05 01 02 01 00 AA"), Status::InvalidInstance);
    EXPECT_EQ(LastSent(), "08 03 03");
    EXPECT_EQ(HandledCount(), 0u);

    protocol.SetPayloadOutHandler(nullptr);
    EXPECT_EQ(ReceiveHex("09 00 42 00 01 00"), Status::InvalidObject);
    EXPECT_EQ(line.sent.size(), 2u);
}

TEST_F(ProtocolTest, MatchesResponsesToTheirRequests) {
    ProtocolMessage request = Request(0x10, 1);
    PayloadWriter writer = request.Writer();
    writer.Write<std::uint8_t>(0x7F);
    writer.Close();
    ASSERT_TRUE(protocol.Send(request));
    EXPECT_EQ(LastSent(), "00 00 10 01 09 00 01 00 7F");
    ProtocolMessage second = Request(0x20, 0);
    ASSERT_TRUE(protocol.Send(second));
    EXPECT_EQ(second.id, 1);

    EXPECT_EQ(ReceiveHex("01 03 0B"), Status::Success);
    ASSERT_EQ(sensor.received.size(), 1u);
    EXPECT_EQ(sensor.received[0].type, Type::NakStatus);
    EXPECT_EQ(sensor.received[0].status, Status::MaxSubscriptionsExceeded);
    EXPECT_EQ(sensor.received[0].attribute, 9);

    EXPECT_EQ(ReceiveHex("00 01 00"), Status::Success);
    ASSERT_EQ(motorTwo.received.size(), 1u);
    EXPECT_EQ(motorTwo.received[0].type, Type::AckStatus);
    EXPECT_EQ(motorTwo.received[0].operation, Operation::Get);

    // Answered already: the id is no longer outstanding.
    EXPECT_EQ(ReceiveHex("00 01 00"), Status::InvalidMessageId);
    EXPECT_EQ(HandledCount(), 2u);
    EXPECT_EQ(line.sent.size(), 2u);
}

TEST_F(ProtocolTest, ANakReleasesItsRequestAndReachesNoHandler) {
    ProtocolMessage request = Request(0x10, 0);
    ASSERT_TRUE(protocol.Send(request));
    EXPECT_EQ(ReceiveHex("00 02"), Status::NakReceived);
    EXPECT_EQ(log.OutstandingCount(), 0u);
    EXPECT_EQ(ReceiveHex("00 01 00"), Status::InvalidMessageId);
    EXPECT_EQ(HandledCount(), 0u);

    ProtocolMessage unset; // a type this side cannot handle
    EXPECT_EQ(protocol.Receive(unset), Status::NakReceived);
}

TEST_F(ProtocolTest, AnAnswerForAnObjectWithoutHandlerIsNotAnswered) {
    ProtocolMessage toNowhere = Request(0x55, 0);
    ASSERT_TRUE(protocol.Send(toNowhere));
    ProtocolMessage toUnknownInstance = Request(0x10, 7);
    ASSERT_TRUE(protocol.Send(toUnknownInstance));
    EXPECT_EQ(ReceiveHex("00 01 00"), Status::InvalidObject);
    EXPECT_EQ(ReceiveHex("01 01 00"), Status::InvalidInstance);
    EXPECT_EQ(line.sent.size(), 2u); // only the two requests
    EXPECT_EQ(log.OutstandingCount(), 0u);
}

// A status this side does not know reaches the object as received and, sent on, leaves as it
// came.
TEST_F(ProtocolTest, CarriesAnUnknownStatusThroughUnchanged) {
    ProtocolMessage request = Request(0x20, 0);
    ASSERT_TRUE(protocol.Send(request));
    EXPECT_EQ(ReceiveHex("00 03 C8"), Status::Success);
    ASSERT_EQ(sensor.received.size(), 1u);
    ProtocolMessage received = sensor.received[0];
    EXPECT_EQ(received.status, Status::OutOfRange);
    EXPECT_EQ(received.statusRaw, 200);
    ASSERT_TRUE(protocol.Send(received));
    EXPECT_EQ(LastSent(), "00 03 C8");
}

TEST_F(ProtocolTest, BadBytesAreInvalidMessagesAndLeaveTheLayerReady) {
    const char* bad[] = {
        "",                                    // nothing
        "07",                                  // id only
        "07 00 10 00 01",                      // request header cut short
        "07 05 00",                            // unknown type
        "07 00 10 00 01 00 05 00 01 02 03 04", // payload length 5, 4 bytes
        "07 00 10 00 01 00 01",                // half a length field
    };
    for (const char* hex : bad) {
        EXPECT_EQ(ReceiveHex(hex), Status::InvalidMessage) << hex;
    }
    Bytes oversized = Hex("07 00 10 00 01 00 01 05");
    oversized.resize(oversized.size() + kMaxPayloadLength + 1);
    EXPECT_EQ(protocol.ReceiveBytes(oversized.data(), static_cast<std::int32_t>(oversized.size())),
              Status::InvalidMessage);
    EXPECT_EQ(protocol.ReceiveBytes(oversized.data(), -1), Status::InvalidMessage);
    EXPECT_EQ(HandledCount(), 0u);
    EXPECT_TRUE(line.sent.empty());

    EXPECT_EQ(ReceiveHex("07 00 10 00 01 00"), Status::Success);
    EXPECT_EQ(motor.received.size(), 1u);
}

// The comms object's loop over one read from the port: every frame is handled in order, each bad
// one costs only itself.
TEST_F(ProtocolTest, HandlesAStreamOfGoodAndBadFramesInOrder) {
    std::array<std::uint8_t, 2048> ring{};
    std::array<std::uint8_t, 2048> scratch{};
    std::array<std::uint8_t, 2048> decoded{};
    CobsTransport transport(ring.data(), ring.size(), scratch.data(), scratch.size());
    ProtocolMessage request = Request(0x20, 0);
    ASSERT_TRUE(protocol.Send(request));

    const Bytes read = Hex("00 "                          // the primed delimiter
                           "02 01 02 10 02 01 01 01 00 "  // request to 0x10/0, Get
                           "05 11 01 00 "                 // malformed COBS
                           "03 07 05 01 00 "              // a message of type 5
                           "01 02 01 01 01 00 "           // the Ack for our request, id 0
                           "01 02 01 01 01 00 "           // the same Ack once more
                           "03 0A 02 01 00 "              // a Nak for an id never sent
                           "02 0B 05 20 07 01 08 01 00"); // request to 0x20/7
    ASSERT_EQ(transport.DataIn(read.data(), read.size()), read.size());
    std::vector<std::string> results;
    std::int32_t length = 0;
    while ((length = transport.Decode(decoded.data(), decoded.size())) != 0) {
        results.push_back(
            length < 0 ? "transport error"
                       : message::StatusShortName(protocol.ReceiveBytes(decoded.data(), length)));
    }
    EXPECT_EQ(results, (std::vector<std::string>{"Success", "transport error", "InvMsg", "Success",
                                                 "InvMsgId", "NakRecv", "InvInst"}));
    ASSERT_EQ(motor.received.size(), 1u);
    ASSERT_EQ(sensor.received.size(), 1u);
    EXPECT_EQ(sensor.received[0].type, Type::AckStatus);
    EXPECT_EQ(LastSent(), "0B 03 03");
}

TEST_F(ProtocolTest, SendReportsEveryWayAMessageFailsToLeave) {
    ProtocolMessage unset;
    EXPECT_FALSE(protocol.Send(unset));

    ProtocolMessage tooLong = Request(0x10, 0);
    tooLong.payloadLength = kMaxPayloadLength + 1;
    EXPECT_FALSE(protocol.Send(tooLong));
    EXPECT_EQ(log.OutstandingCount(), 1u); // logged before serialising; it will time out

    line.accept = false;
    ProtocolMessage refused = Request(0x10, 0);
    EXPECT_FALSE(protocol.Send(refused));

    protocol.SetPayloadOutHandler(nullptr);
    ProtocolMessage ack;
    ack.type = Type::AckStatus;
    EXPECT_FALSE(protocol.Send(ack));
    EXPECT_EQ(log.OutstandingCount(), 2u); // responses are never logged

    std::array<std::uint8_t, 4> tiny{};
    Protocol cramped(tiny.data(), tiny.size(), log);
    RecordingPayloadOut crampedLine;
    cramped.SetPayloadOutHandler(&crampedLine);
    ProtocolMessage request = Request(0x10, 0);
    EXPECT_FALSE(cramped.Send(request));
    EXPECT_TRUE(cramped.Send(ack));
    EXPECT_EQ(ToHex(crampedLine.sent.at(0)), "00 01 00");
}

TEST_F(ProtocolTest, ObjectsAnswerWithTheReplyHelpers) {
    ReplyingObject valve(protocol, 0x30);
    protocol.RegisterMessageHandler(&valve);
    const std::pair<const char*, const char*> cases[] = {
        {"0A 00 30 00 00 02 01 00 FF", "0A 01 00"},
        {"0B 00 30 00 01 02", "0B 03 04"},
        {"0C 00 30 00 02 0D", "0C 03 05"},
        {"0D 00 30 00 03 02 02 00 01 02", "0D 03 08"},
    };
    for (const auto& [request, reply] : cases) {
        EXPECT_EQ(ReceiveHex(request), Status::Success) << request;
        EXPECT_EQ(LastSent(), reply) << request;
    }
    EXPECT_EQ(log.OutstandingCount(), 0u);
}

TEST(ProtocolRegistration, AssertsOnNullAndOnTheTwentyFirstHandler) {
    FakeSystem system;
    ProtocolRequestLog log(100, system);
    std::array<std::uint8_t, 16> transmit{};
    Protocol protocol(transmit.data(), transmit.size(), log);

    try {
        protocol.RegisterMessageHandler(nullptr);
        FAIL() << "no assertion";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(),
                     "ASSERT FAILED: \"messageHandler != nullptr\" in Common/Protocol/Protocol, "
                     "Line 27");
    }

    std::vector<RecordingHandler> handlers;
    handlers.reserve(21);
    for (std::uint8_t i = 0; i < 21; ++i) {
        handlers.emplace_back(i, 0);
    }
    for (std::size_t i = 0; i < 20; ++i) {
        EXPECT_EQ(protocol.RegisterMessageHandler(&handlers[i]), i + 1);
    }
    try {
        protocol.RegisterMessageHandler(&handlers[20]);
        FAIL() << "no assertion";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "ASSERT FAILED: \"spaceAvailableForNewMessageHandler\" in "
                                   "Common/Protocol/Protocol, Line 31");
    }
    EXPECT_EQ(protocol.MessageHandlerCount(), 20u);
}

} // namespace
} // namespace halyard::protocol::test
