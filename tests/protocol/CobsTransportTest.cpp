#include "TestSupport.h"

#include "Common/Protocol/Cobs.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace halyard::protocol::test {
namespace {

class CobsTransportTest : public ::testing::Test, protected LineEnd {
protected:
    void Feed(const Bytes& bytes) {
        ASSERT_EQ(transport.DataIn(bytes.data(), bytes.size()), bytes.size());
    }

    /// What one decode finds: the message in hex, "error" for a refused frame, "none" for 0.
    std::string Next() {
        const std::int32_t length = Decode();
        return length < 0    ? "error"
               : length == 0 ? "none"
                             : ToHex(out.data(), static_cast<std::size_t>(length));
    }

    /// Decodes until the transport reports no complete frame.
    std::vector<std::string> Drain() {
        std::vector<std::string> found;
        for (std::string next = Next(); next != "none"; next = Next()) {
            found.push_back(next);
        }
        return found;
    }
};

TEST_F(CobsTransportTest, EncodesTheWireForms) {
    const Bytes run = NonZeroRun(255);
    const Bytes block(run.begin(), run.begin() + 254);
    const std::pair<Bytes, Bytes> cases[] = {
        {Hex("11 00 22"), Hex("02 11 02 22 01 00")},
        {Hex("00"), Hex("01 01 01 00")},
        {Hex("00 00"), Hex("01 01 01 01 00")},
        {Hex("11"), Hex("02 11 01 00")},
        {Hex("11 00"), Hex("02 11 01 01 00")},
        {Hex("00 11"), Hex("01 02 11 01 00")},
        {Hex("11 22 00 33"), Hex("03 11 22 02 33 01 00")},
        // A full 254-byte block is closed at once, so it gets a code byte of its own.
        {block, Concat({Hex("FF"), block, Hex("01 01 00")})},
        {run, Concat({Hex("FF"), block, Hex("02"), Bytes{run.back()}, Hex("01 00")})},
    };
    for (const auto& [message, frame] : cases) {
        EXPECT_EQ(ToHex(Frame(message)), ToHex(frame)) << ToHex(message);
    }
}

TEST_F(CobsTransportTest, EncodeRefusesEmptyMessagesAndShortOutputs) {
    const Bytes message = Hex("11 00 22");
    EXPECT_EQ(transport.Encode(out.data(), out.size(), message.data(), 0), 0);
    // The frame needs 6 bytes, but the output must leave message length + 4.
    EXPECT_EQ(transport.Encode(out.data(), 6, message.data(), message.size()), -1);
    EXPECT_EQ(transport.Encode(out.data(), 7, message.data(), message.size()), 6);
    // Two full blocks take three code bytes: more than message length + 4.
    const Bytes twoBlocks = NonZeroRun(508);
    EXPECT_EQ(transport.Encode(out.data(), 512, twoBlocks.data(), twoBlocks.size()), -1);
    EXPECT_EQ(transport.Encode(out.data(), 513, twoBlocks.data(), twoBlocks.size()), 513);
}

// Lengths around one and two 254-byte blocks, with and without zero bytes, survive the round
// trip through the line, and the body never holds a delimiter.
TEST_F(CobsTransportTest, RoundTripsEveryLengthAcrossTheBlockBoundaries) {
    Reset();
    for (std::size_t length = 1; length <= 770; ++length) {
        for (const bool withZeros : {false, true}) {
            Bytes message = NonZeroRun(length, static_cast<std::uint8_t>(length));
            for (std::size_t i = 0; withZeros && i < length; i += 97) {
                message[i] = 0;
            }
            if (withZeros) {
                message.back() = 0;
            }
            const Bytes frame = Frame(message);
            if (!withZeros) {
                ASSERT_EQ(frame.size(), length + length / 254 + 3) << length;
            }
            ASSERT_LE(frame.size(), cobs::MaxEncodedLength(length) + 2) << length;
            ASSERT_EQ(std::count(frame.begin(), frame.end() - 2, 0), 0) << length;
            ASSERT_EQ(ToHex(Bytes(frame.end() - 2, frame.end())), "01 00");
            Feed(frame);
            ASSERT_EQ(Drain(), std::vector<std::string>{ToHex(message)}) << length;
        }
    }
    EXPECT_EQ(transport.BufferedBytes(), 1u); // the last closing delimiter opens the next frame
}

TEST(CobsDecode, IsStrictAboutCodesZerosAndOutputSpace) {
    const std::tuple<const char*, std::size_t, const char*> cases[] = {
        {"", 300, ""},
        {"01", 300, ""},
        {"01 01", 300, "00"},
        {"02 11 02 22", 300, "11 00 22"},
        {"00", 300, "error"},          // a zero code
        {"03 11", 300, "error"},       // block runs past the body
        {"03 11 00 22", 300, "error"}, // a zero inside a block
        {"02 11 02 22", 3, "11 00 22"},
        {"02 11 02 22", 2, "error"},
        {"02 11 01", 1, "error"}, // the implied zero needs room as well
    };
    std::array<std::uint8_t, 300> out{};
    for (const auto& [body, capacity, expected] : cases) {
        const Bytes in = Hex(body);
        const std::int32_t length = cobs::Decode(out.data(), capacity, in.data(), in.size());
        EXPECT_EQ(length < 0 ? "error" : ToHex(out.data(), static_cast<std::size_t>(length)),
                  expected)
            << body << " into " << capacity;
    }
}

// Successive decodes of one read ("none" for a decode that returns 0).
TEST_F(CobsTransportTest, FindsFramesInAStreamAndRecoversFromBadOnes) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        // Leading zeros are skipped; the closing delimiter opens the next frame.
        {"00 00 00 02 11 02 22 01 00 02 33 01 00", {"11 00 22", "33", "none"}},
        // Without a delimiter before it the first frame is lost.
        {"02 11 01 00 02 22 01 00", {"22", "none"}},
        // An empty frame ends the current drain but loses nothing.
        {"00 01 00 02 11 01 00", {"none", "11", "none"}},
        // Each bad frame costs exactly one error and the frame behind it still arrives.
        {"00 05 11 01 00 02 44 01 00", {"error", "44", "none"}},          // code runs past the body
        {"00 02 11 00 02 22 01 00 02 44 01 00", {"error", "44", "none"}}, // zero, no end mark
        {"00 02 11 02 00 01 00 02 44 01 00", {"error", "44", "none"}},    // zero data byte
    };
    for (const auto& [stream, expected] : cases) {
        Reset(false);
        Feed(Hex(stream));
        std::vector<std::string> found;
        while (found.size() < expected.size()) {
            found.push_back(Next());
        }
        EXPECT_EQ(found, expected) << stream;
    }
}

// Three frames cut at every position into two reads, and all three merged in one read, give the
// same messages in the same order; a frame is never taken before its end mark and delimiter.
TEST_F(CobsTransportTest, ExtractsFramesAcrossSplitAndMergedReads) {
    const std::vector<std::string> messages{"11 00 22", ToHex(NonZeroRun(300)), "00 00 00"};
    Bytes stream;
    for (const std::string& message : messages) {
        stream = Concat({stream, Frame(Hex(message))});
    }
    for (std::size_t split = 0; split <= stream.size(); ++split) {
        Reset();
        const auto cut = stream.begin() + static_cast<std::ptrdiff_t>(split);
        Feed(Bytes(stream.begin(), cut));
        std::vector<std::string> decoded = Drain();
        Feed(Bytes(cut, stream.end()));
        for (std::string& message : Drain()) {
            decoded.push_back(std::move(message));
        }
        ASSERT_EQ(decoded, messages) << "split at " << split;
    }
}

TEST_F(CobsTransportTest, RefusesFramesLargerThanTheScratchOrTheOutput) {
    std::array<std::uint8_t, 8> smallScratch{};
    CobsTransport small(ring.data(), ring.size(), smallScratch.data(), smallScratch.size());
    const Bytes stream = Concat({Hex("00"), Frame(NonZeroRun(10)), Frame(Hex("55"))});
    ASSERT_EQ(small.DataIn(stream.data(), stream.size()), stream.size());
    EXPECT_EQ(small.Decode(out.data(), out.size()), -1);
    ASSERT_EQ(small.Decode(out.data(), out.size()), 1);
    EXPECT_EQ(out[0], 0x55);

    Reset();
    Feed(Concat({Frame(Hex("11 22 33 44")), Frame(Hex("66"))}));
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
        const Bytes frames = Concat({Frame(Hex("11")), Frame(Hex("22"))});
        EXPECT_EQ(small.DataIn(frames.data(), frames.size()), frames.size());
        std::vector<std::string> decoded;
        for (std::int32_t length = 0; (length = small.Decode(out.data(), out.size())) > 0;) {
            decoded.push_back(ToHex(out.data(), static_cast<std::size_t>(length)));
        }
        return decoded;
    };
    using Found = std::vector<std::string>;
    // A frame start followed by bytes that never end it: the opening delimiter goes with it, so
    // only the frame after the next delimiter arrives.
    EXPECT_EQ(fillThenSend(Concat({Hex("00"), NonZeroRun(62)})), Found{"22"});
    // No frame start at all.
    EXPECT_EQ(fillThenSend(NonZeroRun(63)), Found{"22"});
    // The newest delimiter is kept, so a frame that starts right behind the flood survives.
    EXPECT_EQ(fillThenSend(Concat({Hex("00"), NonZeroRun(61), Hex("00")})), (Found{"11", "22"}));
    EXPECT_EQ(fillThenSend(Bytes(63, 0x00)), (Found{"11", "22"}));
}

} // namespace
} // namespace halyard::protocol::test
