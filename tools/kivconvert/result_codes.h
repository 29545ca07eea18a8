// SPDX-License-Identifier: MIT
// Result codes of the library as messages and exceptions.
#pragma once

#include <stdexcept>
#include <string>

namespace kivconvert
{

/// The library refused something; the message has the code and its meaning.
struct ResultError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// For example "KIVMV_ERR_BIT_DEPTH (2001014): the input image is not 8-bit".
std::string describe_result(int code);

/// @throws ResultError unless `code` is success; its message begins with `subject`, the file or operation concerned,
/// and ends with the reason if one is known.
void expect_success(int code, const std::string& subject, const std::string& reason = {});

} // namespace kivconvert
