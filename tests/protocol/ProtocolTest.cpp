#include "TestSupport.h"

#include "Common/Protocol/MessageCodec.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/ReceiveStream.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace halyard::protocol::test {
namespace {

using message::Operation;
using message::Status;
using message::Type;

using Texts = std::vector<std::string>;

/// The message layer as the comms object builds it, with a 100 ms request log, and three
/// objects: 0x10 instances 0 and 1, and 0x20 instance 0.
class ProtocolTest : public ::testing::Test {
protected:
    ProtocolTest() {
        protocol.SetPayloadOutHandler(&line);
        protocol.RegisterMessageHandler(&motor);
        protocol.RegisterMessageHandler(&motorTwo);
        protocol.RegisterMessageHandler(&sensor);
    }

    /// Receives `bytes`: the short name of the status returned, then " > " and each message the
    /// layer sent in answer.
    std::string Exchange(const Bytes& bytes) {
        const std::size_t sentBefore = line.sent.size();
        std::string text = message::StatusShortName(
            protocol.ReceiveBytes(bytes.data(), static_cast<std::int32_t>(bytes.size())));
        for (std::size_t i = sentBefore; i < line.sent.size(); ++i) {
            text += " > " + ToHex(line.sent[i]);
        }
        return text;
    }
    std::string Exchange(const char* hex) { return Exchange(Hex(hex)); }

    std::string LastSent() const { return line.sent.empty() ? "" : ToHex(line.sent.back()); }

    std::size_t HandledCount() const {
        return motor.received.size() + motorTwo.received.size() + sensor.received.size();
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
    EXPECT_EQ(Exchange("05 00 10 01 02 06"), "Success");
    EXPECT_EQ(Exchange("06 00 20 00 03 08 02 00 34 12"), "Success");
    EXPECT_EQ(motorTwo.Seen(), Texts{"05 Request 10/01/02 Sub=06"});
    EXPECT_EQ(sensor.Seen(), Texts{"06 Request 20/00/03 Update=08 [34 12]"});
    EXPECT_TRUE(motor.received.empty());

    sensor.result = false; // the object answers for itself, or not at all
    EXPECT_EQ(Exchange("07 00 20 00 03 08"), "Failed");
    // The first registration of an (object, instance) pair wins.
    RecordingHandler shadow(0x20, 0);
    protocol.RegisterMessageHandler(&shadow);
    EXPECT_EQ(Exchange("08 00 20 00 03 08"), "Failed");
    EXPECT_TRUE(shadow.received.empty());
}

TEST_F(ProtocolTest, RefusesUnknownObjectsAndInstancesOnTheLine) {
    EXPECT_EQ(Exchange("07 00 42 00 01 00"), "InvObj > 07 03 02");
    LineEnd wire;
    EXPECT_EQ(ToHex(wire.Frame(line.sent.back())), "04 07 03 02 01 00");
    // A payload does not travel back with the refusal.
    EXPECT_EQ(Exchange("08 00 10 05 01 02 01 00 AA"), "InvInst > 08 03 03");
    EXPECT_EQ(HandledCount(), 0u);

    protocol.SetPayloadOutHandler(nullptr);
    EXPECT_EQ(Exchange("09 00 42 00 01 00"), "InvObj");
}

TEST_F(ProtocolTest, MatchesResponsesToTheirRequests) {
    ProtocolMessage request = MakeRequest(0x10, 1);
    PayloadWriter writer = request.Writer();
    writer.Write<std::uint8_t>(0x7F);
    writer.Close();
    ASSERT_TRUE(protocol.Send(request));
    EXPECT_EQ(LastSent(), "00 00 10 01 09 00 01 00 7F");
    for (ProtocolMessage other :
         {MakeRequest(0x20, 0), MakeRequest(0x55, 0), MakeRequest(0x10, 7)}) {
        ASSERT_TRUE(protocol.Send(other));
        EXPECT_EQ(other.id, line.sent.size() - 1);
    }

    // A status this side does not know reaches the object as received and, sent on, leaves as
    // it came.
    EXPECT_EQ(Exchange("01 03 C8"), "Success");
    EXPECT_EQ(sensor.Seen(), Texts{"01 NakStatus OutOfRange=C8 for 20/00/09 Get=00"});
    ASSERT_TRUE(protocol.Send(sensor.received.at(0)));
    EXPECT_EQ(LastSent(), "01 03 C8");

    EXPECT_EQ(Exchange("00 01 00"), "Success");
    EXPECT_EQ(motorTwo.Seen(), Texts{"00 AckStatus Success=00 for 10/01/09 Get=00"});
    EXPECT_EQ(Exchange("00 01 00"), "InvMsgId"); // answered already
    // Answers for an object or instance without handler are not answered back.
    EXPECT_EQ(Exchange("02 01 00"), "InvObj");
    EXPECT_EQ(Exchange("03 01 00"), "InvInst");
    EXPECT_EQ(HandledCount(), 2u);
    EXPECT_EQ(log.OutstandingCount(), 0u);
}

TEST_F(ProtocolTest, ANakReleasesItsRequestAndReachesNoHandler) {
    ProtocolMessage request = MakeRequest(0x10, 0);
    ASSERT_TRUE(protocol.Send(request));
    EXPECT_EQ(Exchange("00 02"), "NakRecv");
    EXPECT_EQ(log.OutstandingCount(), 0u);
    EXPECT_EQ(Exchange("00 01 00"), "InvMsgId");
    EXPECT_EQ(HandledCount(), 0u);

    ProtocolMessage unset; // a type this side cannot handle
    EXPECT_EQ(protocol.Receive(unset), Status::NakReceived);
}

// The comms object's loop over one read from the port: every frame is handled in order, each bad
// one costs only itself and leaves the layer ready.
TEST_F(ProtocolTest, HandlesAStreamOfGoodAndBadFramesInOrder) {
    ProtocolMessage request = MakeRequest(0x20, 0);
    ASSERT_TRUE(protocol.Send(request));
    Bytes oversized = Hex("07 00 10 00 01 00 01 05");
    oversized.resize(oversized.size() + kMaxPayloadLength + 1);
    const std::pair<Bytes, const char*> frames[] = {
        {Hex("01 00 10 00 01 00"), "Success"},               // request to 0x10/0
        {Hex("05 11 01 00"), "transport error"},             // put on the line as it is
        {Hex("07"), "InvMsg"},                               // id only
        {Hex("07 00 10 00 01"), "InvMsg"},                   // request header cut short
        {Hex("07 05 00"), "InvMsg"},                         // unknown type
        {Hex("07 00 10 00 01 00 05 00 01 02 03"), "InvMsg"}, // payload length 5, 3 bytes
        {Hex("07 00 10 00 01 00 01"), "InvMsg"},             // half a length field
        {oversized, "InvMsg"},
        {Hex("00 01 00"), "Success"},                     // the Ack for our request
        {Hex("00 01 00"), "InvMsgId"},                    // the same Ack once more
        {Hex("0A 02"), "NakRecv"},                        // a Nak for an id never sent
        {Hex("0B 00 20 07 01 08"), "InvInst > 0B 03 03"}, // request to 0x20/7
    };
    LineEnd wire;
    Bytes read = Hex("00"); // the primed delimiter
    Texts expected;
    for (const auto& [message, result] : frames) {
        const bool raw = std::string(result) == "transport error";
        read = Concat({read, raw ? message : wire.Frame(message)});
        expected.push_back(result);
    }
    Texts results;
    EXPECT_EQ(ReceiveStream(
                  wire.transport, read.data(), read.size(), wire.out.data(), wire.out.size(),
                  [&](std::int32_t length) {
                      results.push_back(length < 0 ? "transport error"
                                                   : Exchange(Bytes(wire.out.begin(),
                                                                    wire.out.begin() + length)));
                  }),
              0u);
    EXPECT_EQ(results, expected);
    EXPECT_EQ(motor.Seen(), Texts{"01 Request 10/00/01 Get=00"});
    EXPECT_EQ(sensor.Seen(), Texts{"00 AckStatus Success=00 for 20/00/09 Get=00"});
    EXPECT_EQ(Exchange(""), "InvMsg");
    EXPECT_EQ(protocol.ReceiveBytes(read.data(), -1), Status::InvalidMessage);
}

// A comms thread that stalls lets far more than the 2 KB receive buffer pile up in the port: one
// read of it still reaches every handler, in order.
TEST_F(ProtocolTest, DispatchesEveryFrameOfOneReadFiveTimesTheReceiveBuffer) {
    LineEnd wire;
    Bytes read = Hex("00");
    std::size_t sent = 0;
    while (read.size() < 10 * 1024) {
        ProtocolMessage update = MakeRequest(sent % 2 == 0 ? 0x10 : 0x20, 0,
                                             static_cast<std::uint8_t>(sent), Operation::Update);
        update.payloadLength = static_cast<std::uint16_t>(1 + sent % 90);
        std::size_t length = 0;
        Bytes bytes(kMaxPayloadLength + 8);
        ASSERT_EQ(message::Serialise(update, bytes.data(), bytes.size(), length),
                  message::SerialiseResult::Ok);
        bytes.resize(length);
        read = Concat({read, wire.Frame(bytes)});
        ++sent;
    }
    std::size_t results = 0;
    EXPECT_EQ(ReceiveStream(
                  wire.transport, read.data(), read.size(), wire.out.data(), wire.out.size(),
                  [&](std::int32_t length) {
                      ++results;
                      EXPECT_EQ(protocol.ReceiveBytes(wire.out.data(), length), Status::Success);
                  }),
              0u);
    EXPECT_EQ(results, sent);
    ASSERT_EQ(motor.received.size() + sensor.received.size(), sent);
    for (std::size_t i = 0; i < sent; ++i) {
        const ProtocolMessage& m = (i % 2 == 0 ? motor : sensor).received[i / 2];
        EXPECT_EQ(m.attribute, static_cast<std::uint8_t>(i));
        EXPECT_EQ(m.payloadLength, 1 + i % 90);
    }
}

TEST_F(ProtocolTest, SendReportsEveryWayAMessageFailsToLeave) {
    ProtocolMessage unset;
    EXPECT_FALSE(protocol.Send(unset));

    ProtocolMessage tooLong = MakeRequest(0x10, 0);
    tooLong.payloadLength = kMaxPayloadLength + 1;
    EXPECT_FALSE(protocol.Send(tooLong));
    EXPECT_EQ(log.OutstandingCount(), 1u); // logged before serialising; it will time out

    line.accept = false;
    ProtocolMessage refused = MakeRequest(0x10, 0);
    EXPECT_FALSE(protocol.Send(refused));

    protocol.SetPayloadOutHandler(nullptr);
    ProtocolMessage ack = MakeResponse(0, Type::AckStatus);
    EXPECT_FALSE(protocol.Send(ack));
    EXPECT_EQ(log.OutstandingCount(), 2u); // responses are never logged

    std::array<std::uint8_t, 4> tiny{};
    Protocol cramped(tiny.data(), tiny.size(), log);
    RecordingPayloadOut crampedLine;
    cramped.SetPayloadOutHandler(&crampedLine);
    ProtocolMessage request = MakeRequest(0x10, 0);
    EXPECT_FALSE(cramped.Send(request));
    EXPECT_TRUE(cramped.Send(ack));
    EXPECT_EQ(ToHex(crampedLine.sent.at(0)), "00 01 00");
}

// The 257th outstanding request is refused with the log's own text and never reaches the line.
TEST_F(ProtocolTest, RefusesRequestsWhileTheLogIsFull) {
    for (int i = 0; i < 256; ++i) {
        ProtocolMessage request = MakeRequest(0x10, 0);
        ASSERT_TRUE(protocol.Send(request));
        ASSERT_EQ(request.id, i);
    }
    EXPECT_EQ(system.printed, "");

    ProtocolMessage refused = MakeRequest(0x10, 0);
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

// The time-out reaches the requesting object as an answer to its own request, frees the id, is
// reported once and never sent.
TEST_F(ProtocolTest, ATimeoutReachesTheRequestingObjectOnce) {
    system.now = 1000;
    ProtocolMessage request = MakeRequest(0x10, 1, 3, Operation::Set);
    ASSERT_TRUE(protocol.Send(request));
    system.now = 1101;
    log.CheckTimeouts(protocol);
    log.CheckTimeouts(protocol);
    EXPECT_EQ(motorTwo.Seen(), Texts{"00 NakStatus RequestAckTimeout=0A for 10/01/03 Set=02"});
    EXPECT_EQ(log.OutstandingCount(), 0u);
    EXPECT_EQ(line.sent.size(), 1u); // only the request

    // A late answer finds its entry free.
    EXPECT_EQ(Exchange("00 01 00"), "InvMsgId");
    EXPECT_EQ(motorTwo.received.size(), 1u);
}

/// The text an assertion in `action` throws, or "no assertion".
template <typename Action>
std::string AssertionText(Action action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "no assertion";
}

TEST_F(ProtocolTest, AssertsOnNullAndOnTheTwentyFirstHandler) {
    EXPECT_EQ(AssertionText([&] { protocol.RegisterMessageHandler(nullptr); }),
              "ASSERT FAILED: \"messageHandler != nullptr\" in Common/Protocol/Protocol, Line 27");

    std::vector<RecordingHandler> handlers;
    handlers.reserve(18);
    for (std::uint8_t i = 0; i < 18; ++i) {
        handlers.emplace_back(static_cast<std::uint8_t>(0x40 + i), 0);
    }
    for (std::size_t i = 0; i < 17; ++i) {
        EXPECT_EQ(protocol.RegisterMessageHandler(&handlers[i]), i + 4);
    }
    EXPECT_EQ(AssertionText([&] { protocol.RegisterMessageHandler(&handlers[17]); }),
              "ASSERT FAILED: \"spaceAvailableForNewMessageHandler\" in "
              "Common/Protocol/Protocol, Line 31");
    EXPECT_EQ(protocol.MessageHandlerCount(), 20u);
}

} // namespace
} // namespace halyard::protocol::test
