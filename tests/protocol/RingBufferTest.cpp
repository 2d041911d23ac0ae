#include "TestSupport.h"

#include "Common/Protocol/RingBuffer.h"

#include <gtest/gtest.h>

namespace halyard::protocol::test {
namespace {

// At every start offset of an 8-byte ring: one slot stays free, a write takes only what fits,
// and writes, reads and positions (relative to the oldest byte) wrap around the storage end.
TEST(RingBuffer, HoldsCapacityLessOneAndWrapsAtEveryOffset) {
    std::array<std::uint8_t, 8> storage{};
    RingBuffer ring(storage.data(), storage.size());
    const Bytes data = Hex("10 20 30 40 50 60 70 80");
    for (std::size_t offset = 0; offset < storage.size(); ++offset) {
        ring.Reset();
        const Bytes filler(offset, 0xEE);
        ASSERT_EQ(ring.Write(filler.data(), filler.size()), offset);
        ring.Discard(offset);
        ASSERT_TRUE(ring.IsEmpty());
        EXPECT_EQ(ring.Free(), 7u);
        ASSERT_EQ(ring.Write(data.data(), 5), 5u);
        EXPECT_EQ(ring.Write(data.data() + 5, 3), 2u) << offset;
        EXPECT_EQ(ring.Count(), 7u);
        EXPECT_EQ(ring.Write(data.data(), 1), 0u);

        std::uint8_t byte = 0;
        ASSERT_TRUE(ring.PeekAt(6, byte));
        EXPECT_EQ(byte, 0x70) << offset;
        EXPECT_FALSE(ring.PeekAt(7, byte));
        std::size_t found = 0;
        ASSERT_TRUE(ring.FindByteFrom(2, 0x50, found));
        EXPECT_EQ(found, 4u) << offset;
        EXPECT_FALSE(ring.FindByteFrom(5, 0x50, found));
        EXPECT_FALSE(ring.FindByteFrom(0, 0xEE, found)); // old bytes outside the count

        ring.Discard(1);
        Bytes out(8, 0);
        ASSERT_EQ(ring.Read(out.data(), out.size()), 6u);
        EXPECT_EQ(ToHex(out.data(), 6), "20 30 40 50 60 70") << offset;
        EXPECT_EQ(ring.Read(out.data(), 1), 0u);
        EXPECT_TRUE(ring.IsEmpty());
    }
}

TEST(RingBuffer, DiscardAndResetNeverPassTheWriteIndex) {
    std::array<std::uint8_t, 8> storage{};
    RingBuffer ring(storage.data(), storage.size());
    const Bytes data = Hex("01 02 03");
    for (int round = 0; round < 3; ++round) { // the third write wraps round the end
        ASSERT_EQ(ring.Write(data.data(), data.size()), 3u);
        ring.Discard(round < 2 ? 3 : 10);
    }
    EXPECT_TRUE(ring.IsEmpty());
    EXPECT_EQ(ring.Free(), 7u);

    ring.Write(data.data(), data.size());
    ring.Reset();
    EXPECT_EQ(ring.Count(), 0u);
    EXPECT_EQ(ring.Write(data.data(), data.size()), 3u);
    EXPECT_EQ(storage[0], 0x01);

    RingBuffer empty(nullptr, 0); // without storage it accepts nothing
    std::uint8_t out = 0;
    std::size_t found = 0;
    EXPECT_EQ(empty.Write(data.data(), 1), 0u);
    EXPECT_EQ(empty.Read(&out, 1), 0u);
    EXPECT_FALSE(empty.PeekAt(0, out));
    EXPECT_FALSE(empty.FindByteFrom(0, 1, found));
    empty.Discard(1);
    EXPECT_EQ(empty.Count(), 0u);
}

} // namespace
} // namespace halyard::protocol::test
