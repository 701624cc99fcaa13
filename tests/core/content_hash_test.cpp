#include "core/base/content_hash.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <vector>

TEST(ContentHash, IsThatOfTheBytesHoweverTheyAreDivided)
{
    std::mt19937 random(7);
    std::set<std::uint64_t> seen;
    for (std::size_t size = 0; size < 150; ++size) {
        std::vector<std::uint8_t> bytes(size);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        const std::uint64_t whole = contentHash(bytes);
        EXPECT_TRUE(seen.insert(whole).second);
        for (int i = 0; i < 20; ++i) {
            ContentHash hash;
            for (std::span<const std::uint8_t> left = bytes; !left.empty();) {
                const std::size_t count = std::min<std::size_t>(left.size(), random() % 50);
                hash.add(left.first(count));
                left = left.subspan(count);
            }
            EXPECT_EQ(hash.value(), whole) << size;
        }
        for (std::uint8_t& byte : bytes) {
            byte ^= 1;
            EXPECT_NE(contentHash(bytes), whole) << "one bit of " << size;
            byte ^= 1;
        }
        bytes.push_back(0);
        EXPECT_NE(contentHash(bytes), whole) << "a zero behind " << size;
    }
}
