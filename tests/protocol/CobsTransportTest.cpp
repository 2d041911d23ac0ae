#include "TestSupport.h"

#include "Common/Protocol/Cobs.h"
#include "Common/Protocol/CobsTransport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace halyard::protocol::test {
namespace {

constexpr std::size_t kBufferSize = 2048;

/// The transport as the comms object builds it: 2048-byte ring and scratch, primed with the one
/// 0x00 that lets the very first frame be found.
class CobsTransportTest : public ::testing::Test {
protected:
    Bytes EncodeFrame(const Bytes& message) {
        Bytes frame(message.size() + message.size() / 254 + 8);
        const std::int32_t length =
            transport.Encode(frame.data(), frame.size(), message.data(), message.size());
        EXPECT_GT(length, 0);
        frame.resize(static_cast<std::size_t>(std::max(length, 0)));
        return frame;
    }

    void Prime() { ASSERT_EQ(transport.DataIn(Hex("00").data(), 1), 1u); }

    void Feed(const Bytes& bytes) {
        ASSERT_EQ(transport.DataIn(bytes.data(), bytes.size()), bytes.size());
    }

    /// Decodes until the transport reports no complete frame; -1 results are counted as errors.
    std::vector<Bytes> Drain() {
        std::vector<Bytes> messages;
        std::int32_t length = 0;
        while ((length = transport.Decode(out.data(), out.size())) != 0) {
            if (length < 0) {
                ++errors;
                continue;
            }
            messages.emplace_back(out.begin(), out.begin() + length);
        }
        return messages;
    }

    std::array<std::uint8_t, kBufferSize> ring{};
    std::array<std::uint8_t, kBufferSize> scratch{};
    std::array<std::uint8_t, kBufferSize> out{};
    CobsTransport transport{ring.data(), ring.size(), scratch.data(), scratch.size()};
    int errors = 0;
};

Bytes NonZeroRun(std::size_t length, std::uint8_t first = 1) {
    Bytes bytes(length);
    for (std::size_t i = 0; i < length; ++i) {
        bytes[i] = static_cast<std::uint8_t>(1 + (first + i) % 255);
    }
    return bytes;
}

Bytes Concat(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

TEST_F(CobsTransportTest, EncodesTheWireFormsOfShortMessages) {
    const std::pair<const char*, const char*> cases[] = {
        {"11 00 22", "02 11 02 22 01 00"},
        {"00", "01 01 01 00"},
        {"00 00", "01 01 01 01 00"},
        {"11", "02 11 01 00"},
        {"11 00", "02 11 01 01 00"},
        {"00 11", "01 02 11 01 00"},
        {"11 22 00 33", "03 11 22 02 33 01 00"},
    };
    for (const auto& [message, frame] : cases) {
        EXPECT_EQ(ToHex(EncodeFrame(Hex(message))), frame) << message;
    }
}

TEST_F(CobsTransportTest, ClosesAFull254ByteBlockAtOnce) {
    const Bytes run = NonZeroRun(254);
    const Bytes frame = EncodeFrame(run);
    ASSERT_EQ(frame.size(), 258u);
    EXPECT_EQ(frame.front(), 0xFF);
    EXPECT_TRUE(std::equal(run.begin(), run.end(), frame.begin() + 1));
    EXPECT_EQ(ToHex(Bytes(frame.end() - 3, frame.end())), "01 01 00");

    const Bytes longer = EncodeFrame(NonZeroRun(255));
    ASSERT_EQ(longer.size(), 259u);
    EXPECT_EQ(longer[0], 0xFF);
    EXPECT_EQ(longer[255], 0x02);
}

TEST_F(CobsTransportTest, EncodeRefusesEmptyMessagesAndShortOutputs) {
    std::array<std::uint8_t, 600> frame{};
    const Bytes message = Hex("11 00 22");
    EXPECT_EQ(transport.Encode(frame.data(), frame.size(), message.data(), 0), 0);
    // The frame needs 6 bytes, but the output must leave message length + 4.
    EXPECT_EQ(transport.Encode(frame.data(), 6, message.data(), message.size()), -1);
    EXPECT_EQ(transport.Encode(frame.data(), 7, message.data(), message.size()), 6);

    // Two full blocks take three code bytes: more than message length + 4.
    const Bytes twoBlocks = NonZeroRun(508);
    EXPECT_EQ(transport.Encode(frame.data(), 512, twoBlocks.data(), twoBlocks.size()), -1);
    EXPECT_EQ(transport.Encode(frame.data(), 513, twoBlocks.data(), twoBlocks.size()), 513);
}

// Lengths around one and two 254-byte blocks, with and without zero bytes, survive the round
// trip through the line, and the body never holds a delimiter.
TEST_F(CobsTransportTest, RoundTripsEveryLengthAcrossTheBlockBoundaries) {
    Prime();
    for (std::size_t length = 1; length <= 770; ++length) {
        for (const bool withZeros : {false, true}) {
            Bytes message = NonZeroRun(length, static_cast<std::uint8_t>(length));
            if (withZeros) {
                for (std::size_t i = 0; i < length; i += 97) {
                    message[i] = 0;
                }
                message.back() = 0;
            }
            const Bytes frame = EncodeFrame(message);
            if (!withZeros) {
                ASSERT_EQ(frame.size(), length + length / 254 + 3) << length;
            }
            ASSERT_LE(frame.size(), cobs::MaxEncodedLength(length) + 2) << length;
            ASSERT_EQ(std::count(frame.begin(), frame.end() - 2, 0), 0) << length;
            ASSERT_EQ(ToHex(Bytes(frame.end() - 2, frame.end())), "01 00");

            Feed(frame);
            const std::vector<Bytes> decoded = Drain();
            ASSERT_EQ(decoded.size(), 1u) << length;
            ASSERT_EQ(decoded[0], message) << length;
        }
    }
    EXPECT_EQ(errors, 0);
    EXPECT_EQ(transport.BufferedBytes(), 1u); // the last closing delimiter opens the next frame
}

TEST(CobsDecode, IsStrictAboutCodesZerosAndOutputSpace) {
    std::array<std::uint8_t, 300> out{};
    const auto decode = [&out](const char* body, std::size_t capacity = 300) {
        const Bytes in = Hex(body);
        const std::int32_t length = cobs::Decode(out.data(), capacity, in.data(), in.size());
        return length < 0 ? std::string("error")
                          : ToHex(out.data(), static_cast<std::size_t>(length));
    };
    EXPECT_EQ(decode(""), "");
    EXPECT_EQ(decode("01"), "");
    EXPECT_EQ(decode("01 01"), "00");
    EXPECT_EQ(decode("02 11 02 22"), "11 00 22");
    EXPECT_EQ(decode("00"), "error");          // a zero code
    EXPECT_EQ(decode("03 11"), "error");       // block runs past the body
    EXPECT_EQ(decode("03 11 00 22"), "error"); // a zero inside a block
    EXPECT_EQ(decode("02 11 02 22", 3), "11 00 22");
    EXPECT_EQ(decode("02 11 02 22", 2), "error");
    EXPECT_EQ(decode("02 11 01", 1), "error"); // the implied zero needs room as well

    Bytes fullBlock{0xFF};
    const Bytes run = NonZeroRun(254);
    fullBlock.insert(fullBlock.end(), run.begin(), run.end());
    fullBlock.push_back(0x02);
    fullBlock.push_back(0x33);
    const std::int32_t length =
        cobs::Decode(out.data(), out.size(), fullBlock.data(), fullBlock.size());
    ASSERT_EQ(length, 255); // a 0xFF block implies no zero after it
    EXPECT_EQ(out[253], run.back());
    EXPECT_EQ(out[254], 0x33);
}

TEST_F(CobsTransportTest, SkipsLeadingZerosAndKeepsTheClosingDelimiter) {
    Feed(Hex("00 00 00 02 11 02 22 01 00"));
    std::int32_t length = transport.Decode(out.data(), out.size());
    ASSERT_EQ(length, 3);
    EXPECT_EQ(ToHex(out.data(), 3), "11 00 22");
    EXPECT_EQ(transport.BufferedBytes(), 1u);

    // The kept delimiter opens the next frame, which the sender writes without one.
    Feed(Hex("02 33 01 00"));
    length = transport.Decode(out.data(), out.size());
    ASSERT_EQ(length, 1);
    EXPECT_EQ(out[0], 0x33);
}

TEST_F(CobsTransportTest, LosesTheFirstFrameWithoutThePrimedDelimiter) {
    Feed(Hex("02 11 01 00 02 22 01 00"));
    EXPECT_EQ(Drain(), std::vector<Bytes>{Hex("22")});
    EXPECT_EQ(errors, 0);
}

TEST_F(CobsTransportTest, AnEmptyFrameEndsTheCurrentDrainButLosesNothing) {
    Prime();
    Feed(Hex("01 00 02 11 01 00"));
    EXPECT_EQ(transport.Decode(out.data(), out.size()), 0);
    ASSERT_EQ(transport.Decode(out.data(), out.size()), 1);
    EXPECT_EQ(out[0], 0x11);
}

TEST_F(CobsTransportTest, WaitsForTheEndMarkAndDelimiter) {
    Prime();
    const Bytes frame = EncodeFrame(Hex("11 00 22 33"));
    for (std::size_t i = 0; i + 1 < frame.size(); ++i) {
        Feed(Bytes{frame[i]});
        EXPECT_EQ(transport.Decode(out.data(), out.size()), 0) << "after byte " << i;
    }
    Feed(Bytes{frame.back()});
    EXPECT_EQ(transport.Decode(out.data(), out.size()), 4);

    // A zero without the end mark before it does not close a frame.
    Feed(Hex("02 11 00"));
    EXPECT_EQ(transport.Decode(out.data(), out.size()), 0);
    EXPECT_EQ(transport.BufferedBytes(), 4u);
}

// Three frames cut at every position into two reads, and all three merged in one read, give the
// same messages in the same order.
TEST_F(CobsTransportTest, ExtractsFramesAcrossSplitAndMergedReads) {
    const std::vector<Bytes> messages{Hex("11 00 22"), NonZeroRun(300), Hex("00 00 00")};
    Bytes stream;
    for (const Bytes& message : messages) {
        const Bytes frame = EncodeFrame(message);
        stream.insert(stream.end(), frame.begin(), frame.end());
    }
    for (std::size_t split = 0; split <= stream.size(); ++split) {
        transport = CobsTransport(ring.data(), ring.size(), scratch.data(), scratch.size());
        Prime();
        Feed(Bytes(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(split)));
        std::vector<Bytes> decoded = Drain();
        Feed(Bytes(stream.begin() + static_cast<std::ptrdiff_t>(split), stream.end()));
        for (Bytes& message : Drain()) {
            decoded.push_back(std::move(message));
        }
        ASSERT_EQ(decoded, messages) << "split at " << split;
    }
    EXPECT_EQ(errors, 0);
}

// Each bad frame costs exactly one -1 and the frame behind it still arrives.
TEST_F(CobsTransportTest, RecoversFromMalformedFrames) {
    const std::pair<const char*, const char*> cases[] = {
        {"05 11 01 00", "code runs past the body"},
        {"02 11 00 02 22 01 00", "zero inside the body (no end mark before it)"},
        {"02 11 02 00 01 00", "zero data byte"},
    };
    for (const auto& [bad, why] : cases) {
        transport = CobsTransport(ring.data(), ring.size(), scratch.data(), scratch.size());
        errors = 0;
        Prime();
        Feed(Concat({Hex(bad), Hex("02 44 01 00")}));
        EXPECT_EQ(Drain(), std::vector<Bytes>{Hex("44")}) << why;
        EXPECT_EQ(errors, 1) << why;
    }
}

TEST_F(CobsTransportTest, RefusesFramesLargerThanTheScratchOrTheOutput) {
    std::array<std::uint8_t, 8> smallScratch{};
    CobsTransport small(ring.data(), ring.size(), smallScratch.data(), smallScratch.size());
    const Bytes stream = Concat({Hex("00"), EncodeFrame(NonZeroRun(10)), EncodeFrame(Hex("55"))});
    ASSERT_EQ(small.DataIn(stream.data(), stream.size()), stream.size());
    EXPECT_EQ(small.Decode(out.data(), out.size()), -1);
    ASSERT_EQ(small.Decode(out.data(), out.size()), 1);
    EXPECT_EQ(out[0], 0x55);

    Prime();
    Feed(Concat({EncodeFrame(Hex("11 22 33 44")), EncodeFrame(Hex("66"))}));
    EXPECT_EQ(transport.Decode(out.data(), 3), -1);
    EXPECT_EQ(transport.Decode(out.data(), 3), 1);
    EXPECT_EQ(out[0], 0x66);
}

// A full receive buffer that holds no complete frame would otherwise block reception for good:
// the transport drops the unfinishable bytes and the link carries on.
TEST_F(CobsTransportTest, DropsAnUnfinishableFrameWhenTheBufferIsFull) {
    std::array<std::uint8_t, 64> smallRing{};
    const auto fillThenSend = [&](const Bytes& flood) {
        CobsTransport small(smallRing.data(), smallRing.size(), scratch.data(), scratch.size());
        EXPECT_EQ(small.DataIn(flood.data(), flood.size()), 63u);
        EXPECT_EQ(small.Decode(out.data(), out.size()), -1);
        EXPECT_LE(small.BufferedBytes(), 1u);
        std::vector<Bytes> decoded;
        const Bytes frames = Concat({EncodeFrame(Hex("11")), EncodeFrame(Hex("22"))});
        EXPECT_EQ(small.DataIn(frames.data(), frames.size()), frames.size());
        std::int32_t length = 0;
        while ((length = small.Decode(out.data(), out.size())) > 0) {
            decoded.emplace_back(out.begin(), out.begin() + length);
        }
        return decoded;
    };

    // A frame start followed by bytes that never end it: the opening delimiter goes with it, so
    // only the frame after the next delimiter arrives.
    EXPECT_EQ(fillThenSend(Concat({Hex("00"), NonZeroRun(62)})), std::vector<Bytes>{Hex("22")});
    // No frame start at all.
    EXPECT_EQ(fillThenSend(NonZeroRun(63)), std::vector<Bytes>{Hex("22")});
    // The newest delimiter is kept, so a frame that starts right behind the flood survives.
    EXPECT_EQ(fillThenSend(Concat({Hex("00"), NonZeroRun(61), Hex("00")})),
              (std::vector<Bytes>{Hex("11"), Hex("22")}));
    EXPECT_EQ(fillThenSend(Bytes(63, 0x00)), (std::vector<Bytes>{Hex("11"), Hex("22")}));
}

} // namespace
} // namespace halyard::protocol::test
