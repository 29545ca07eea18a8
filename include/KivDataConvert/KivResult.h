// SPDX-License-Identifier: MIT
/// @file
/// The result codes of the library, and what they mean in words. Needs neither the library nor the data types.
#pragma once

namespace KIVMV
{

/// @name Result codes
/// Codes about an input that is not an image follow its position among those inputs. DescribeResult() says what each
/// means.
/// @{
inline constexpr int KIVMV_OK = 0;                  ///< Success.
inline constexpr int KIVMV_ERR_NO_IMAGE = 1100001;  ///< No pixels.
inline constexpr int KIVMV_ERR_CHANNELS = 1100005;  ///< Wrong number of channels.
inline constexpr int KIVMV_ERR_LENGTH = 1100007;    ///< Wrong length of an array.
inline constexpr int KIVMV_ERR_PARAM_1 = 1100008;   ///< The first input that is not an image.
inline constexpr int KIVMV_ERR_PARAM_2 = 1100009;   ///< The second input that is not an image.
inline constexpr int KIVMV_ERR_PARAM_3 = 1100010;   ///< The third input that is not an image.
inline constexpr int KIVMV_ERR_PARAM_4 = 1100011;   ///< The fourth input that is not an image.
inline constexpr int KIVMV_ERR_PARAM_5 = 1100012;   ///< The fifth input that is not an image.
inline constexpr int KIVMV_ERR_EXCEPTION = 1100049; ///< A caught exception.
inline constexpr int KIVMV_ERR_BIT_DEPTH = 2001014; ///< Wrong depth of pixels.
/// @}

/// A result code with its name and its meaning.
struct ResultDescription {
    int code;            ///< One of the result codes.
    const char* name;    ///< The name of its constant, such as "KIVMV_ERR_LENGTH".
    const char* meaning; ///< A phrase without a capital or a full stop.
};

/// All result codes, in ascending order.
inline constexpr ResultDescription ResultDescriptions[] = {
    {KIVMV_OK, "KIVMV_OK", "success"},
    {KIVMV_ERR_NO_IMAGE, "KIVMV_ERR_NO_IMAGE", "the input image holds no pixels"},
    {KIVMV_ERR_CHANNELS, "KIVMV_ERR_CHANNELS", "the input image has a channel count that is not taken"},
    {KIVMV_ERR_LENGTH, "KIVMV_ERR_LENGTH", "two parallel arrays are empty or of different lengths"},
    {KIVMV_ERR_PARAM_1, "KIVMV_ERR_PARAM_1", "the first input that is not an image is empty or invalid"},
    {KIVMV_ERR_PARAM_2, "KIVMV_ERR_PARAM_2", "the second input that is not an image is invalid"},
    {KIVMV_ERR_PARAM_3, "KIVMV_ERR_PARAM_3", "the third input that is not an image is invalid"},
    {KIVMV_ERR_PARAM_4, "KIVMV_ERR_PARAM_4", "the fourth input that is not an image is invalid"},
    {KIVMV_ERR_PARAM_5, "KIVMV_ERR_PARAM_5", "the fifth input that is not an image is invalid"},
    {KIVMV_ERR_EXCEPTION, "KIVMV_ERR_EXCEPTION", "an exception was caught while the output was being built"},
    {KIVMV_ERR_BIT_DEPTH, "KIVMV_ERR_BIT_DEPTH", "the input image is not 8-bit"},
};

/// The description of a result code, or null for a number that is none.
constexpr const ResultDescription* DescribeResult(int code) noexcept
{
    for (const ResultDescription& description : ResultDescriptions) {
        if (description.code == code) {
            return &description;
        }
    }
    return nullptr;
}

} // namespace KIVMV
