// SPDX-License-Identifier: MIT
// What can be wrong with what the user gave, as one line that names it.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace kivconvert
{

/// Wrong input. `subject` is what it is about: a file, a shape or an option.
struct InputError : std::runtime_error {
    InputError(const std::string& subject, const std::string& what) : runtime_error(subject + ": " + what) {}
};

struct FileError : InputError {
    using InputError::InputError;

    /// Lines are counted from 1.
    FileError(const std::string& file, std::size_t line, const std::string& what)
        : InputError(file + ":" + std::to_string(line), what)
    {
    }
};

} // namespace kivconvert
