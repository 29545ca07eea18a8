// SPDX-License-Identifier: MIT
// What a failure means to the caller of the program: lines of text and an exit status.
#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>

namespace kivconvert
{

namespace exit_status
{
inline constexpr int different = 1;   ///< no failure: what has been compared differs
inline constexpr int refused = 1;     ///< the library refused its input, or memory ran out
inline constexpr int wrong_input = 2; ///< the command line or a file is wrong
} // namespace exit_status

struct Failure {
    int status = exit_status::refused;
    std::string lines; ///< for standard error
};

/// The message as a line for standard error, also if it contains line ends itself, as file names may.
std::string error_line(std::string message);

/// Some of several files could not be converted.
struct FilesFailed : std::runtime_error {
    FilesFailed(const Failure& failure_, const std::string& what) : runtime_error(what), failure(failure_) {}
    Failure failure; ///< a line for each file, and one for what()
};

/// The meaning of the exception that is being handled.
Failure current_failure();

/// Failures of parts of a whole, the rest of which is done all the same.
class Complaints
{
public:
    /// Runs `work`, and keeps its failure if it fails.
    void keep(const std::function<void()>& work);

    std::size_t count() const { return count_; }

    /// @throws FilesFailed with a line for each failure, if there are any
    void expect_none() const;

    /// @throws FilesFailed with another line, "N of TOTAL WHAT"
    void expect_none(std::size_t total, const std::string& what) const;

private:
    Failure failure_{0, {}};
    std::size_t count_ = 0;
};

/// Runs `work`; errors that do not name a file (std::bad_alloc, for instance) are reported under `subject`.
void report_under(const std::string& subject, const std::function<void()>& work);

} // namespace kivconvert
