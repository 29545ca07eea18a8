// SPDX-License-Identifier: MIT
// Mask bytes, 64 at a time: as a word whose bit i says whether byte i is foreground, that is, not 0. There is one way
// that works on every machine, and one for each instruction set that has something better. SSE2 is in every x86-64 and
// NEON in every arm64, so the choice is made when the library is compiled.
//
// Bytes are taken as they are, or by how far they lie beyond a range of values: then those within it are 0. Vectors do
// it in two steps: load() gives how far bytes lie above the least value, modulo 256, and beyond() takes what the range
// spans away. The largest and the least of many bytes are found between the steps, so the second is needed only once.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#elif defined(__aarch64__) && defined(__ARM_NEON) && !defined(__AARCH64EB__)
#include <arm_neon.h>
#endif

namespace kivrlc
{

/// How many bytes make a word.
inline constexpr int word_pixels = 64;

/// Eight bytes at a time, in 64-bit integers of either byte order.
struct PortableWords {
    /// The bytes from a place on, as they are.
    struct Bytes {
        std::uint64_t operator()(const std::uint8_t* bytes) const
        {
            std::uint64_t eight = 0;
            std::memcpy(&eight, bytes, sizeof eight);
            return eight;
        }
    };

    /// How far they lie beyond the values from `least` to `least` + `span`.
    struct BytesBeyond {
        std::uint8_t least;
        std::uint8_t span;

        std::uint64_t operator()(const std::uint8_t* bytes) const
        {
            std::uint8_t beyond[8];
            for (int i = 0; i < 8; ++i) {
                const auto above = static_cast<std::uint8_t>(bytes[i] - least);
                beyond[i] = static_cast<std::uint8_t>(above - (above < span ? above : span));
            }
            return Bytes()(beyond);
        }
    };

    template <class Load = Bytes>
    static std::uint64_t foreground_bits(const std::uint8_t* bytes, Load load = {})
    {
        // Multiplied by it, the lowest bits of eight bytes meet in the highest byte, the first byte's bit at its
        // bottom.
        constexpr std::uint64_t gather =
            std::endian::native == std::endian::little ? 0x0102040810204080 : 0x8040201008040201;
        std::uint64_t bits = 0;
        for (int i = 0; i < word_pixels; i += 8) {
            bits |= (foreground_of_8(load(bytes + i)) * gather >> 56) << i;
        }
        return bits;
    }

    template <class Load = Bytes>
    static bool is_background(const std::uint8_t* bytes, Load load = {})
    {
        std::uint64_t any = 0;
        for (int i = 0; i < word_pixels; i += 8) {
            any |= load(bytes + i);
        }
        return any == 0;
    }

    template <class Load = Bytes>
    static bool is_foreground(const std::uint8_t* bytes, Load load = {})
    {
        std::uint64_t all = every_lowest_bit;
        for (int i = 0; i < word_pixels; i += 8) {
            all &= foreground_of_8(load(bytes + i));
        }
        return all == every_lowest_bit;
    }

private:
    static constexpr std::uint64_t every_lowest_bit = 0x0101010101010101;

    /// 1 in each byte that is not 0. Adding 127 to the lower seven bits sets the highest one unless they all are 0.
    static std::uint64_t foreground_of_8(std::uint64_t bytes)
    {
        constexpr std::uint64_t lower_bits = 0x7f * every_lowest_bit;
        return (((bytes & lower_bits) + lower_bits) | bytes) >> 7 & every_lowest_bit;
    }
};

#if defined(__SSE2__)
/// Sixteen bytes at a time.
struct Sse2Words {
    /// The bytes from a place on, as they are.
    struct Bytes {
        __m128i operator()(const std::uint8_t* bytes) const
        {
            return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
        }
        __m128i beyond(__m128i bytes) const { return bytes; }
    };

    /// How far they lie beyond the values from `least` to `least` + `span`.
    struct BytesBeyond {
        std::uint8_t least;
        std::uint8_t span;

        __m128i operator()(const std::uint8_t* bytes) const { return _mm_sub_epi8(Bytes()(bytes), all(least)); }
        __m128i beyond(__m128i above) const { return _mm_subs_epu8(above, all(span)); }

    private:
        static __m128i all(std::uint8_t value) { return _mm_set1_epi8(static_cast<char>(value)); }
    };

    template <class Load = Bytes>
    static std::uint64_t foreground_bits(const std::uint8_t* bytes, Load load = {})
    {
        const auto background = [bytes, load](int i) { return background_of_16(load.beyond(load(bytes + i))); };
        return ~(background(0) | background(16) << 16 | background(32) << 32 | background(48) << 48);
    }

    template <class Load = Bytes>
    static bool is_background(const std::uint8_t* bytes, Load load = {})
    {
        const __m128i greatest =
            _mm_max_epu8(_mm_max_epu8(load(bytes), load(bytes + 16)), _mm_max_epu8(load(bytes + 32), load(bytes + 48)));
        return background_of_16(load.beyond(greatest)) == 0xffff;
    }

    template <class Load = Bytes>
    static bool is_foreground(const std::uint8_t* bytes, Load load = {})
    {
        const __m128i least =
            _mm_min_epu8(_mm_min_epu8(load(bytes), load(bytes + 16)), _mm_min_epu8(load(bytes + 32), load(bytes + 48)));
        return background_of_16(load.beyond(least)) == 0;
    }

private:
    static std::uint64_t background_of_16(__m128i bytes)
    {
        return static_cast<std::uint64_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128())));
    }
};
using NativeWords = Sse2Words;

#elif defined(__aarch64__) && defined(__ARM_NEON) && !defined(__AARCH64EB__)
/// Sixteen bytes at a time.
struct NeonWords {
    /// The bytes from a place on, as they are.
    struct Bytes {
        uint8x16_t operator()(const std::uint8_t* bytes) const { return vld1q_u8(bytes); }
        uint8x16_t beyond(uint8x16_t bytes) const { return bytes; }
    };

    /// How far they lie beyond the values from `least` to `least` + `span`.
    struct BytesBeyond {
        std::uint8_t least;
        std::uint8_t span;

        uint8x16_t operator()(const std::uint8_t* bytes) const { return vsubq_u8(vld1q_u8(bytes), vdupq_n_u8(least)); }
        uint8x16_t beyond(uint8x16_t above) const { return vqsubq_u8(above, vdupq_n_u8(span)); }
    };

    template <class Load = Bytes>
    static std::uint64_t foreground_bits(const std::uint8_t* bytes, Load load = {})
    {
        // Each byte has one bit left, by its place among eight; sums of neighbours bring eight of them into one byte.
        const auto bits = [bytes, load](int i) { return placed_bits(load.beyond(load(bytes + i))); };
        const uint8x16_t halves_of_32 = vpaddq_u8(bits(0), bits(16));
        const uint8x16_t others = vpaddq_u8(bits(32), bits(48));
        const uint8x16_t quarters = vpaddq_u8(halves_of_32, others);
        return vgetq_lane_u64(vreinterpretq_u64_u8(vpaddq_u8(quarters, quarters)), 0);
    }

    template <class Load = Bytes>
    static bool is_background(const std::uint8_t* bytes, Load load = {})
    {
        const uint8x16_t greatest =
            vmaxq_u8(vmaxq_u8(load(bytes), load(bytes + 16)), vmaxq_u8(load(bytes + 32), load(bytes + 48)));
        return vmaxvq_u8(load.beyond(greatest)) == 0;
    }

    template <class Load = Bytes>
    static bool is_foreground(const std::uint8_t* bytes, Load load = {})
    {
        const uint8x16_t least =
            vminq_u8(vminq_u8(load(bytes), load(bytes + 16)), vminq_u8(load(bytes + 32), load(bytes + 48)));
        return vminvq_u8(load.beyond(least)) != 0;
    }

private:
    static uint8x16_t placed_bits(uint8x16_t bytes)
    {
        constexpr std::uint8_t places[16] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
        return vandq_u8(vtstq_u8(bytes, bytes), vld1q_u8(places));
    }
};
using NativeWords = NeonWords;

#else
using NativeWords = PortableWords;
#endif

} // namespace kivrlc
