#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

// Tells two states of a file apart without keeping the other one: quick, of this run only, no protection
// against anybody who means it. Each step is a bijection of the word, so that one changed word always shows.
// However the bytes are divided among the calls, the hash is the same.
class ContentHash
{
public:
    void add(std::span<const std::uint8_t> bytes)
    {
        size_ += bytes.size();
        if (left_ > 0)
            bytes = keep(bytes);
        for (; bytes.size() >= stripe; bytes = bytes.subspan(stripe))
            mix(bytes.data());
        keep(bytes);
    }

    std::uint64_t value() const
    {
        ContentHash last = *this;
        if (left_ > 0) {
            std::fill(
                last.rest_.begin() + static_cast<std::ptrdiff_t>(left_), last.rest_.end(), std::uint8_t{0});
            last.mix(last.rest_.data());
        }
        std::uint64_t hash = size_ * factor;
        for (const std::uint64_t lane : last.lanes_)
            hash = step(hash, lane);
        return hash ^ hash >> 32U;
    }

private:
    // Lanes do not wait for one another.
    static constexpr std::size_t lanes = 4;
    static constexpr std::size_t stripe = lanes * sizeof(std::uint64_t);
    static constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;

    static std::uint64_t step(std::uint64_t hash, std::uint64_t word)
    {
        return std::rotl((hash ^ word) * 0xC2B2AE3D27D4EB4F, 29) + factor;
    }
    void mix(const std::uint8_t* bytes)
    {
        std::array<std::uint64_t, lanes> words;
        std::memcpy(words.data(), bytes, stripe);
        for (std::size_t i = 0; i < lanes; ++i)
            lanes_[i] = step(lanes_[i], words[i]);
    }
    // As many as are missing in the stripe that has begun; returns what is behind them.
    std::span<const std::uint8_t> keep(std::span<const std::uint8_t> bytes)
    {
        const std::size_t count = std::min(stripe - left_, bytes.size());
        std::copy_n(bytes.begin(), count, rest_.begin() + static_cast<std::ptrdiff_t>(left_));
        left_ += count;
        if (left_ == stripe) {
            mix(rest_.data());
            left_ = 0;
        }
        return bytes.subspan(count);
    }

    std::array<std::uint64_t, lanes> lanes_{1, 2, 3, 4};
    std::array<std::uint8_t, stripe> rest_{};
    std::size_t left_ = 0;
    std::uint64_t size_ = 0;
};

inline std::uint64_t contentHash(std::span<const std::uint8_t> bytes)
{
    ContentHash hash;
    hash.add(bytes);
    return hash.value();
}

// Of bytes in several pieces, in this order.
inline std::uint64_t contentHash(std::span<const std::span<const std::uint8_t>> parts)
{
    ContentHash hash;
    for (const auto part : parts)
        hash.add(part);
    return hash.value();
}
