#include "TestSupport.h"

#include "Common/Protocol/MessageCodec.h"
#include "Common/Protocol/ProtocolMessage.h"

#include <gtest/gtest.h>

#include <array>

namespace halyard::protocol::test {
namespace {

using message::Operation;
using message::ParseResult;
using message::SerialiseResult;
using message::Status;
using message::Type;

std::string Serialised(const ProtocolMessage& message) {
    std::array<std::uint8_t, 2048> out{};
    std::size_t length = 0;
    const SerialiseResult result = message::Serialise(message, out.data(), out.size(), length);
    if (result != SerialiseResult::Ok) {
        return "code " + std::to_string(static_cast<int>(result));
    }
    return ToHex(out.data(), length);
}

ParseResult ParseHex(const Bytes& bytes, ProtocolMessage& message) {
    return message::Parse(bytes.data(), bytes.size(), message);
}

ProtocolMessage Request(std::uint8_t id, std::uint8_t object, std::uint8_t instance,
                        std::uint8_t attribute, Operation operation) {
    ProtocolMessage request;
    request.id = id;
    request.type = Type::Request;
    request.object = object;
    request.instance = instance;
    request.attribute = attribute;
    request.SetOperation(operation);
    return request;
}

ProtocolMessage Response(std::uint8_t id, Type type, Status status) {
    ProtocolMessage response;
    response.id = id;
    response.type = type;
    response.SetStatus(status);
    return response;
}

TEST(MessageCodec, SerialisesEachTypeWithItsOwnHeader) {
    ProtocolMessage request = Request(5, 0x10, 1, 2, Operation::Set);
    EXPECT_EQ(Serialised(request), "05 00 10 01 02 02");
    PayloadWriter writer = request.Writer();
    writer.Write<std::uint16_t>(0x1234);
    writer.Close();
    EXPECT_EQ(Serialised(request), "05 00 10 01 02 02 02 00 34 12");

    EXPECT_EQ(Serialised(Response(7, Type::AckStatus, Status::Success)), "07 01 00");
    EXPECT_EQ(Serialised(Response(7, Type::NakStatus, Status::InvalidAttribute)), "07 03 04");
    EXPECT_EQ(Serialised(Response(7, Type::Nak, Status::Failed)), "07 02");
}

TEST(MessageCodec, SerialiseRefusesUnsetTypesLongPayloadsAndSmallBuffers) {
    ProtocolMessage fresh;
    EXPECT_EQ(Serialised(fresh), "code 2");

    ProtocolMessage request = Request(1, 2, 3, 4, Operation::Get);
    request.payloadLength = kMaxPayloadLength;
    std::array<std::uint8_t, 2048> out{};
    std::size_t length = 0;
    EXPECT_EQ(message::Serialise(request, out.data(), out.size(), length), SerialiseResult::Ok);
    EXPECT_EQ(length, 6u + 2u + kMaxPayloadLength);
    EXPECT_EQ(message::Serialise(request, out.data(), length - 1, length),
              SerialiseResult::BufferTooSmall);
    request.payloadLength = kMaxPayloadLength + 1;
    EXPECT_EQ(Serialised(request), "code 4");
    EXPECT_EQ(message::Serialise(request, out.data(), 5, length), SerialiseResult::BufferTooSmall);

    const ProtocolMessage ack = Response(1, Type::AckStatus, Status::Success);
    EXPECT_EQ(message::Serialise(ack, out.data(), 2, length), SerialiseResult::BufferTooSmall);
}

TEST(MessageCodec, ParsesHeadersWithAndWithoutPayload) {
    ProtocolMessage request;
    ASSERT_EQ(ParseHex(Hex("05 00 10 01 02 02 03 00 AA BB CC"), request), ParseResult::Ok);
    EXPECT_EQ(request.id, 5);
    EXPECT_EQ(request.type, Type::Request);
    EXPECT_EQ(request.object, 0x10);
    EXPECT_EQ(request.instance, 1);
    EXPECT_EQ(request.attribute, 2);
    EXPECT_EQ(request.operation, Operation::Set);
    ASSERT_EQ(request.payloadLength, 3);
    EXPECT_EQ(ToHex(request.payload.data(), 3), "AA BB CC");

    ProtocolMessage headerOnly;
    ASSERT_EQ(ParseHex(Hex("05 00 10 01 02 08"), headerOnly), ParseResult::Ok);
    EXPECT_EQ(headerOnly.operation, Operation::Update);
    EXPECT_EQ(headerOnly.payloadLength, 0);

    ProtocolMessage nak;
    ASSERT_EQ(ParseHex(Hex("09 02"), nak), ParseResult::Ok);
    EXPECT_EQ(nak.type, Type::Nak);
    EXPECT_EQ(nak.id, 9);

    ProtocolMessage ack;
    ASSERT_EQ(ParseHex(Hex("09 01 0D 01 00 7F"), ack), ParseResult::Ok);
    EXPECT_EQ(ack.status, Status::InvalidSubscribeRequest);
    EXPECT_EQ(ack.payloadLength, 1);
}

TEST(MessageCodec, ParseReportsEachKindOfBadMessage) {
    const std::pair<Bytes, ParseResult> cases[] = {
        {Hex(""), ParseResult::Truncated},
        {Hex("07"), ParseResult::Truncated},
        {Hex("07 00 10 01 02"), ParseResult::Truncated},
        {Hex("07 01"), ParseResult::Truncated},
        {Hex("07 01 00 05"), ParseResult::Truncated}, // half a length field
        {Hex("07 04"), ParseResult::InvalidType},
        {Hex("07 FF 00"), ParseResult::InvalidType},
        {Hex("07 01 00 05 00 01 02 03 04"), ParseResult::LengthMismatch},
        {Hex("07 01 00 03 00 01 02 03 04"), ParseResult::LengthMismatch},
        {Hex("07 01 00 00 00"), ParseResult::Ok}, // an explicit length of zero
    };
    for (const auto& [bytes, expected] : cases) {
        ProtocolMessage parsed;
        EXPECT_EQ(ParseHex(bytes, parsed), expected) << ToHex(bytes);
    }

    ProtocolMessage badType;
    badType.type = Type::Request;
    ParseHex(Hex("07 04"), badType);
    EXPECT_EQ(badType.type, Type::NotSet);

    Bytes tooLong = Hex("07 01 00 01 05");
    tooLong.resize(tooLong.size() + kMaxPayloadLength + 1, 0x5A);
    ProtocolMessage parsed;
    EXPECT_EQ(ParseHex(tooLong, parsed), ParseResult::PayloadTooLong);
    EXPECT_EQ(parsed.payloadLength, 0);
}

// Values this side does not know are carried, not corrected: a status of 200 or an operation of
// 0x20 goes back on the wire exactly as it came.
TEST(MessageCodec, KeepsUnknownStatusAndOperationBytesRaw) {
    ProtocolMessage response;
    ASSERT_EQ(ParseHex(Hex("03 01 C8"), response), ParseResult::Ok);
    EXPECT_EQ(response.status, Status::OutOfRange);
    EXPECT_EQ(static_cast<int>(response.status), 128);
    EXPECT_EQ(response.statusRaw, 200);
    EXPECT_EQ(Serialised(response), "03 01 C8");

    ProtocolMessage request;
    ASSERT_EQ(ParseHex(Hex("03 00 01 02 03 20"), request), ParseResult::Ok);
    EXPECT_EQ(request.operation, Operation::OutOfRange);
    EXPECT_EQ(request.operationRaw, 0x20);
    EXPECT_EQ(Serialised(request), "03 00 01 02 03 20");

    ProtocolMessage last;
    ASSERT_EQ(ParseHex(Hex("03 00 01 02 03 0C"), last), ParseResult::Ok);
    EXPECT_EQ(last.operation, Operation::Stop);
}

TEST(MessageCodec, RoundTripsTheLargestPayload) {
    ProtocolMessage request = Request(0xFE, 0xAB, 0xCD, 0xEF, Operation::SetAll);
    for (std::size_t i = 0; i < kMaxPayloadLength; ++i) {
        request.payload[i] = static_cast<std::uint8_t>(i * 7);
    }
    request.payloadLength = kMaxPayloadLength;
    std::array<std::uint8_t, 2048> out{};
    std::size_t length = 0;
    ASSERT_EQ(message::Serialise(request, out.data(), out.size(), length), SerialiseResult::Ok);
    ProtocolMessage parsed;
    ASSERT_EQ(message::Parse(out.data(), length, parsed), ParseResult::Ok);
    EXPECT_EQ(parsed.payloadLength, kMaxPayloadLength);
    EXPECT_EQ(parsed.payload, request.payload);
    EXPECT_EQ(parsed.attribute, 0xEF);
}

TEST(PayloadCursors, WriteAndReadLittleAndBigEndianFields) {
    ProtocolMessage message;
    PayloadWriter writer = message.Writer();
    EXPECT_TRUE(writer.Write<std::uint8_t>(0x01));
    EXPECT_TRUE(writer.Write<std::int16_t>(-2));
    EXPECT_TRUE(writer.Write<std::uint32_t>(0x11223344));
    EXPECT_TRUE(writer.Write<std::uint32_t>(0x11223344, ByteOrder::BigEndian));
    EXPECT_TRUE(writer.Write(1.5f));
    EXPECT_TRUE(writer.WriteString("pump", 16));
    EXPECT_TRUE(writer.WriteString("truncated", 4));
    writer.Close();
    EXPECT_EQ(ToHex(message.payload.data(), message.payloadLength),
              "01 FE FF 44 33 22 11 11 22 33 44 00 00 C0 3F 70 75 6D 70 00 74 72 75 00");

    PayloadReader reader = message.Reader();
    std::uint8_t u8 = 0;
    std::int16_t i16 = 0;
    std::uint32_t little = 0;
    std::uint32_t big = 0;
    float real = 0;
    char text[8] = {};
    EXPECT_TRUE(reader.Read(u8));
    EXPECT_TRUE(reader.Read(i16));
    EXPECT_TRUE(reader.Read(little));
    EXPECT_TRUE(reader.Read(big, ByteOrder::BigEndian));
    EXPECT_TRUE(reader.Read(real));
    EXPECT_TRUE(reader.ReadString(text, sizeof text));
    EXPECT_EQ(i16, -2);
    EXPECT_EQ(little, 0x11223344u);
    EXPECT_EQ(big, 0x11223344u);
    EXPECT_EQ(real, 1.5f);
    EXPECT_STREQ(text, "pump");
    EXPECT_FALSE(reader.ReadString(text, 3)); // "tru" has no NUL within 3 bytes
    EXPECT_EQ(reader.Remaining(), 4u);
    EXPECT_TRUE(reader.ReadString(text, sizeof text));
    EXPECT_FALSE(reader.Read(u8));
}

TEST(PayloadCursors, RefuseFieldsThatDoNotFitAndStayPut) {
    ProtocolMessage message;
    PayloadWriter writer = message.Writer();
    const Bytes almostFull(kMaxPayloadLength - 3, 0x11);
    ASSERT_TRUE(writer.WriteBytes(almostFull.data(), almostFull.size()));
    EXPECT_FALSE(writer.Write<std::uint32_t>(1));
    EXPECT_FALSE(writer.WriteString("abc", 8));
    EXPECT_TRUE(writer.WriteString("ab", 8));
    EXPECT_EQ(writer.Free(), 0u);
    writer.Close();
    EXPECT_EQ(message.payloadLength, kMaxPayloadLength);

    const Bytes three = Hex("01 02 03");
    PayloadReader reader(three.data(), three.size());
    std::uint32_t value = 0;
    EXPECT_FALSE(reader.Read(value));
    EXPECT_EQ(reader.Position(), 0u);
    std::uint16_t half = 0;
    EXPECT_TRUE(reader.Read(half));
    EXPECT_EQ(half, 0x0201);
}

TEST(MessageTexts, NameEveryValueAndMarkTheRest) {
    const char* shortNames[] = {"Success",       "Failed",      "InvObj",   "InvInst",    "InvAtt",
                                "InvOp",         "InvMsg",      "InvMsgId", "InvMsgData", "NakRecv",
                                "ReqAckTimeOut", "MaxSubsExcd", "NoSub",    "InvSubReq"};
    for (std::uint8_t value = 0; value <= message::kLastStatus; ++value) {
        EXPECT_STREQ(message::StatusShortName(static_cast<Status>(value)), shortNames[value]);
    }
    EXPECT_STREQ(message::StatusName(Status::MaxSubscriptionsExceeded), "MaxSubscriptionsExceeded");
    EXPECT_STREQ(message::StatusName(Status::OutOfRange), "OutOfRange");
    EXPECT_STREQ(message::OperationName(Operation::Update), "Update");
    EXPECT_STREQ(message::OperationName(Operation::Stop), "Stop");
    EXPECT_STREQ(message::OperationName(message::ToOperation(13)), "OutOfRange");
    EXPECT_STREQ(message::TypeName(Type::NakStatus), "NakStatus");
    EXPECT_STREQ(message::TypeName(Type::NotSet), "OutOfRange");
}

} // namespace
} // namespace halyard::protocol::test
