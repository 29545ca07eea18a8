// SPDX-License-Identifier: MIT
// Errors in the command line and in files; each message names its subject.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace kivconvert
{

/// `subject` is the file, the shape or the option that is wrong.
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
