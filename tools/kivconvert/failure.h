// SPDX-License-Identifier: MIT
// What a failure means to the caller of the program: a line of text and an exit status.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace kivconvert
{

namespace exit_status
{
inline constexpr int refused = 1;     ///< the library refused its input, or memory ran out
inline constexpr int wrong_input = 2; ///< the command line or a file is wrong
} // namespace exit_status

struct Failure {
    int status = exit_status::refused;
    std::string message;
};

/// Some of several files could not be converted, which has been reported.
struct FilesFailed : std::runtime_error {
    FilesFailed(int status_, const std::string& what) : runtime_error(what), status(status_) {}
    int status;
};

/// The meaning of the exception that is being handled.
Failure current_failure();

/// Does the work. What goes wrong in it and has no name, like a lack of memory, gets that of the subject.
void naming(const std::string& subject, const std::function<void()>& work);

/// Says what is wrong in one line, also when a file name or a message has several.
void report(const Failure& failure);

} // namespace kivconvert
