#include "TestSupport.h"

#include "Common/Protocol/RingBuffer.h"

#include <gtest/gtest.h>

#include <array>

namespace halyard::protocol::test {
namespace {

class RingBufferTest : public ::testing::Test {
protected:
    /// Moves both indices to `offset` so that the next writes wrap around the end.
    void StartAt(std::size_t offset) {
        const Bytes filler(offset, 0xEE);
        ASSERT_EQ(ring.Write(filler.data(), filler.size()), offset);
        ring.Discard(offset);
        ASSERT_TRUE(ring.IsEmpty());
    }

    std::array<std::uint8_t, 8> storage{};
    RingBuffer ring{storage.data(), storage.size()};
};

TEST_F(RingBufferTest, KeepsOneSlotFreeAndTakesOnlyWhatFits) {
    const Bytes data = Hex("01 02 03 04 05 06 07 08 09");
    EXPECT_EQ(ring.Free(), 7u);
    EXPECT_EQ(ring.Write(data.data(), 5), 5u);
    EXPECT_EQ(ring.Write(data.data() + 5, 4), 2u);
    EXPECT_EQ(ring.Count(), 7u);
    EXPECT_EQ(ring.Free(), 0u);
    EXPECT_EQ(ring.Write(data.data(), 1), 0u);

    Bytes out(9, 0);
    EXPECT_EQ(ring.Read(out.data(), out.size()), 7u);
    EXPECT_EQ(ToHex(out.data(), 7), "01 02 03 04 05 06 07");
    EXPECT_EQ(ring.Read(out.data(), 1), 0u);
    EXPECT_TRUE(ring.IsEmpty());
}

// Writes and reads split in two pieces at the end of the storage; positions stay relative to
// the oldest byte.
TEST_F(RingBufferTest, WrapsAroundTheEndOfItsStorage) {
    for (std::size_t offset = 0; offset < storage.size(); ++offset) {
        ring.Reset();
        StartAt(offset);
        const Bytes data = Hex("10 20 30 40 50 60");
        ASSERT_EQ(ring.Write(data.data(), data.size()), data.size());
        ASSERT_EQ(ring.Count(), 6u);

        std::uint8_t byte = 0;
        ASSERT_TRUE(ring.PeekAt(5, byte));
        EXPECT_EQ(byte, 0x60) << offset;
        EXPECT_FALSE(ring.PeekAt(6, byte));

        std::size_t found = 0;
        ASSERT_TRUE(ring.FindByteFrom(2, 0x50, found));
        EXPECT_EQ(found, 4u) << offset;
        EXPECT_FALSE(ring.FindByteFrom(5, 0x50, found));
        EXPECT_FALSE(ring.FindByteFrom(0, 0xEE, found)); // old bytes outside the count

        ring.Discard(1);
        Bytes out(6, 0);
        ASSERT_EQ(ring.Read(out.data(), out.size()), 5u);
        EXPECT_EQ(ToHex(out.data(), 5), "20 30 40 50 60") << offset;
    }
}

TEST_F(RingBufferTest, DiscardAndResetNeverPassTheWriteIndex) {
    StartAt(6);
    const Bytes data = Hex("01 02 03");
    ring.Write(data.data(), data.size());
    ring.Discard(10);
    EXPECT_TRUE(ring.IsEmpty());
    EXPECT_EQ(ring.Free(), 7u);

    ring.Write(data.data(), data.size());
    ring.Reset();
    EXPECT_EQ(ring.Count(), 0u);
    EXPECT_EQ(ring.Write(data.data(), data.size()), 3u);
    EXPECT_EQ(storage[0], 0x01);
}

TEST(RingBufferWithoutStorage, AcceptsNothing) {
    RingBuffer ring(nullptr, 0);
    const std::uint8_t byte = 1;
    std::uint8_t out = 0;
    std::size_t found = 0;
    EXPECT_EQ(ring.Write(&byte, 1), 0u);
    EXPECT_EQ(ring.Read(&out, 1), 0u);
    EXPECT_FALSE(ring.PeekAt(0, out));
    EXPECT_FALSE(ring.FindByteFrom(0, 1, found));
    ring.Discard(1);
    EXPECT_EQ(ring.Count(), 0u);
}

} // namespace
} // namespace halyard::protocol::test
