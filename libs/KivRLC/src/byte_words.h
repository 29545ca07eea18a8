// SPDX-License-Identifier: MIT
// Mask bytes, 64 at a time: as a word whose bit i says whether byte i is foreground, that is, not 0. There is one way
// that works on every machine, and one for each instruction set that has something better. SSE2 is in every x86-64 and
// NEON in every arm64, so the choice is made when the library is compiled.
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
    static std::uint64_t foreground_bits(const std::uint8_t* bytes)
    {
        // Multiplied by it, the lowest bits of eight bytes meet in the highest byte, the first byte's bit at its
        // bottom.
        constexpr std::uint64_t gather =
            std::endian::native == std::endian::little ? 0x0102040810204080 : 0x8040201008040201;
        std::uint64_t bits = 0;
        for (int i = 0; i < word_pixels; i += 8) {
            bits |= (foreground_of_8(loaded(bytes + i)) * gather >> 56) << i;
        }
        return bits;
    }

    static bool is_background(const std::uint8_t* bytes)
    {
        std::uint64_t any = 0;
        for (int i = 0; i < word_pixels; i += 8) {
            any |= loaded(bytes + i);
        }
        return any == 0;
    }

    static bool is_foreground(const std::uint8_t* bytes)
    {
        std::uint64_t all = every_lowest_bit;
        for (int i = 0; i < word_pixels; i += 8) {
            all &= foreground_of_8(loaded(bytes + i));
        }
        return all == every_lowest_bit;
    }

private:
    static constexpr std::uint64_t every_lowest_bit = 0x0101010101010101;

    static std::uint64_t loaded(const std::uint8_t* bytes)
    {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes, sizeof eight);
        return eight;
    }

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
    static std::uint64_t foreground_bits(const std::uint8_t* bytes)
    {
        return ~(background_of_16(loaded(bytes)) | background_of_16(loaded(bytes + 16)) << 16 |
                 background_of_16(loaded(bytes + 32)) << 32 | background_of_16(loaded(bytes + 48)) << 48);
    }

    static bool is_background(const std::uint8_t* bytes)
    {
        const __m128i any = _mm_or_si128(_mm_or_si128(loaded(bytes), loaded(bytes + 16)),
                                         _mm_or_si128(loaded(bytes + 32), loaded(bytes + 48)));
        return background_of_16(any) == 0xffff;
    }

    static bool is_foreground(const std::uint8_t* bytes)
    {
        const __m128i least = _mm_min_epu8(_mm_min_epu8(loaded(bytes), loaded(bytes + 16)),
                                           _mm_min_epu8(loaded(bytes + 32), loaded(bytes + 48)));
        return background_of_16(least) == 0;
    }

private:
    static __m128i loaded(const std::uint8_t* bytes)
    {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    }

    static std::uint64_t background_of_16(__m128i bytes)
    {
        return static_cast<std::uint64_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128())));
    }
};
using NativeWords = Sse2Words;

#elif defined(__aarch64__) && defined(__ARM_NEON) && !defined(__AARCH64EB__)
/// Sixteen bytes at a time.
struct NeonWords {
    static std::uint64_t foreground_bits(const std::uint8_t* bytes)
    {
        // Each byte has one bit left, by its place among eight; sums of neighbours bring eight of them into one byte.
        const uint8x16_t halves_of_32 = vpaddq_u8(placed_bits(bytes), placed_bits(bytes + 16));
        const uint8x16_t others = vpaddq_u8(placed_bits(bytes + 32), placed_bits(bytes + 48));
        const uint8x16_t quarters = vpaddq_u8(halves_of_32, others);
        return vgetq_lane_u64(vreinterpretq_u64_u8(vpaddq_u8(quarters, quarters)), 0);
    }

    static bool is_background(const std::uint8_t* bytes)
    {
        const uint8x16_t any = vorrq_u8(vorrq_u8(vld1q_u8(bytes), vld1q_u8(bytes + 16)),
                                        vorrq_u8(vld1q_u8(bytes + 32), vld1q_u8(bytes + 48)));
        return vmaxvq_u8(any) == 0;
    }

    static bool is_foreground(const std::uint8_t* bytes)
    {
        const uint8x16_t least = vminq_u8(vminq_u8(vld1q_u8(bytes), vld1q_u8(bytes + 16)),
                                          vminq_u8(vld1q_u8(bytes + 32), vld1q_u8(bytes + 48)));
        return vminvq_u8(least) != 0;
    }

private:
    static uint8x16_t placed_bits(const std::uint8_t* bytes)
    {
        constexpr std::uint8_t places[16] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
        const uint8x16_t sixteen = vld1q_u8(bytes);
        return vandq_u8(vtstq_u8(sixteen, sixteen), vld1q_u8(places));
    }
};
using NativeWords = NeonWords;

#else
using NativeWords = PortableWords;
#endif

} // namespace kivrlc
