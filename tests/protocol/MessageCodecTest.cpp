#include "TestSupport.h"

#include "Common/Protocol/MessageCodec.h"

#include <gtest/gtest.h>

namespace halyard::protocol::test {
namespace {

using message::Operation;
using message::ParseResult;
using message::Status;
using message::Type;

/// The wire form in hex, or "code N" with the serialiser's error code.
std::string Serialised(const ProtocolMessage& message, std::size_t capacity = 2048) {
    Bytes out(capacity);
    std::size_t length = 0;
    const auto result = message::Serialise(message, out.data(), out.size(), length);
    return result == message::SerialiseResult::Ok
               ? ToHex(out.data(), length)
               : "code " + std::to_string(static_cast<int>(result));
}

ParseResult Parse(const Bytes& bytes, ProtocolMessage& message) {
    return message::Parse(bytes.data(), bytes.size(), message);
}

TEST(MessageCodec, SerialisesEachTypeWithItsOwnHeader) {
    ProtocolMessage withPayload = MakeRequest(0x10, 1, 2, Operation::Set, 5);
    PayloadWriter writer = withPayload.Writer();
    writer.Write<std::uint16_t>(0x1234);
    writer.Close();
    const std::pair<ProtocolMessage, const char*> cases[] = {
        {MakeRequest(0x10, 1, 2, Operation::Set, 5), "05 00 10 01 02 02"},
        {withPayload, "05 00 10 01 02 02 02 00 34 12"},
        {MakeResponse(7, Type::AckStatus, Status::Success), "07 01 00"},
        {MakeResponse(7, Type::NakStatus, Status::InvalidAttribute), "07 03 04"},
        {MakeResponse(7, Type::Nak, Status::Failed), "07 02"},
    };
    for (const auto& [message, wire] : cases) {
        EXPECT_EQ(Serialised(message), wire);
    }
}

// The operation codes on the wire. The simulator shares them with the application, so the end
// to end tests cannot catch a wrong one; this pins them down.
TEST(MessageCodec, SerialisesEachOperationAsItsCode) {
    const Operation operations[] = {Operation::Get,    Operation::GetAll, Operation::Set,
                                    Operation::SetAll, Operation::SetDef, Operation::Reset,
                                    Operation::Sub,    Operation::Unsub,  Operation::Update,
                                    Operation::Ack,    Operation::Verify, Operation::Start,
                                    Operation::Stop};
    for (std::size_t code = 0; code < std::size(operations); ++code) {
        const Bytes wire = Concat({Hex("05 00 10 01 02"), Bytes{static_cast<std::uint8_t>(code)}});
        EXPECT_EQ(Serialised(MakeRequest(0x10, 1, 2, operations[code], 5)), ToHex(wire));
    }
}

// Error codes: 1 buffer too small, 2 type not set, 4 payload too long. The largest payload
// fits exactly and comes back whole.
TEST(MessageCodec, SerialiseReportsItsErrorCodes) {
    EXPECT_EQ(Serialised(ProtocolMessage{}), "code 2");

    ProtocolMessage largest = MakeRequest(0xAB, 0xCD, 0xEF, Operation::SetAll, 0xFE);
    for (std::size_t i = 0; i < kMaxPayloadLength; ++i) {
        largest.payload[i] = static_cast<std::uint8_t>(i * 7);
    }
    largest.payloadLength = kMaxPayloadLength;
    const Bytes wire = Hex(Serialised(largest));
    ASSERT_EQ(wire.size(), 6u + 2u + kMaxPayloadLength);
    ProtocolMessage parsed;
    ASSERT_EQ(Parse(wire, parsed), ParseResult::Ok);
    EXPECT_EQ(parsed.payloadLength, kMaxPayloadLength);
    EXPECT_EQ(parsed.payload, largest.payload);
    EXPECT_EQ(parsed.attribute, 0xEF);
    EXPECT_EQ(Serialised(largest, wire.size() - 1), "code 1");

    largest.payloadLength = kMaxPayloadLength + 1;
    EXPECT_EQ(Serialised(largest), "code 4");
    EXPECT_EQ(Serialised(largest, 5), "code 1"); // a header that does not fit is reported first
    EXPECT_EQ(Serialised(MakeResponse(1, Type::AckStatus), 2), "code 1");
}

// Every wire form parses and goes back out unchanged, including bytes this side has no name
// for: a status of 200 and operations of 0x0D and 0x20 are carried, not corrected. The
// descriptions use the long names, so the out-of-range marking is checked here too.
TEST(MessageCodec, ParsesWireFormsAndSerialisesThemBackUnchanged) {
    const std::pair<const char*, const char*> cases[] = {
        {"05 00 10 01 02 02 03 00 AA BB CC", "05 Request 10/01/02 Set=02 [AA BB CC]"},
        {"05 00 10 01 02 08", "05 Request 10/01/02 Update=08"},
        {"03 00 01 02 03 0C", "03 Request 01/02/03 Stop=0C"},
        {"03 00 01 02 03 20", "03 Request 01/02/03 OutOfRange=20"},
        {"03 00 01 02 03 0D", "03 Request 01/02/03 OutOfRange=0D"},
        {"09 02", "09 Nak"},
        {"09 01 0D 01 00 7F", "09 AckStatus InvalidSubscribeRequest=0D for 00/00/00 Get=00 [7F]"},
        {"03 01 C8", "03 AckStatus OutOfRange=C8 for 00/00/00 Get=00"},
    };
    for (const auto& [wire, description] : cases) {
        ProtocolMessage parsed;
        ASSERT_EQ(Parse(Hex(wire), parsed), ParseResult::Ok) << wire;
        EXPECT_EQ(Describe(parsed), description);
        EXPECT_EQ(Serialised(parsed), wire);
    }
    ProtocolMessage unknownStatus;
    Parse(Hex("03 01 C8"), unknownStatus);
    EXPECT_EQ(static_cast<int>(unknownStatus.status), 128);
}

TEST(MessageCodec, ParseReportsEachKindOfBadMessage) {
    Bytes tooLong = Hex("07 01 00 01 05");
    tooLong.resize(tooLong.size() + kMaxPayloadLength + 1, 0x5A);
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
        {tooLong, ParseResult::PayloadTooLong},
        {Hex("07 01 00 00 00"), ParseResult::Ok}, // an explicit length of zero
    };
    for (const auto& [bytes, expected] : cases) {
        ProtocolMessage parsed = MakeRequest(1, 2); // a type a bad type byte must not leave
        parsed.payloadLength = 3;
        EXPECT_EQ(Parse(bytes, parsed), expected) << ToHex(bytes);
        EXPECT_EQ(parsed.payloadLength, 0) << ToHex(bytes);
        if (expected == ParseResult::InvalidType) {
            EXPECT_EQ(parsed.type, Type::NotSet);
        }
    }
}

TEST(PayloadCursors, WriteAndReadLittleAndBigEndianFields) {
    ProtocolMessage message;
    PayloadWriter writer = message.Writer();
    EXPECT_TRUE(writer.Write<std::uint8_t>(0x01) && writer.Write<std::int16_t>(-2) &&
                writer.Write<std::uint32_t>(0x11223344) &&
                writer.Write<std::uint32_t>(0x11223344, ByteOrder::BigEndian) &&
                writer.Write(1.5f) && writer.WriteString("pump", 16) &&
                writer.WriteString("truncated", 4));
    writer.Close();
    EXPECT_EQ(ToHex(message.payload.data(), message.payloadLength),
              "01 FE FF 44 33 22 11 11 22 33 44 00 00 C0 3F 70 75 6D 70 00 74 72 75 00");

    PayloadReader reader = message.Reader();
    std::uint8_t u8 = 0;
    std::int16_t i16 = 0;
    std::uint32_t little = 0, big = 0;
    float real = 0;
    char text[8] = {};
    EXPECT_TRUE(reader.Read(u8) && reader.Read(i16) && reader.Read(little) &&
                reader.Read(big, ByteOrder::BigEndian) && reader.Read(real) &&
                reader.ReadString(text, sizeof text));
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

} // namespace
} // namespace halyard::protocol::test
