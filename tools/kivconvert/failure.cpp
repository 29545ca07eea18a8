// SPDX-License-Identifier: MIT
#include "kivconvert/failure.h"

#include "kivconvert/errors.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <new>
#include <opencv2/core.hpp>

namespace kivconvert
{

Failure current_failure()
{
    try {
        throw;
    } catch (const InputError& error) {
        return {exit_status::wrong_input, error.what()};
    } catch (const FilesFailed& error) {
        return {error.status, error.what()};
    } catch (const cv::Exception& error) {
        return {exit_status::refused, error.err};
    } catch (const std::bad_alloc&) {
        return {exit_status::refused, "out of memory"};
    } catch (const std::exception& error) {
        return {exit_status::refused, error.what()};
    }
}

void report(const Failure& failure)
{
    std::string line = failure.message;
    std::replace_if(
        line.begin(), line.end(), [](unsigned char letter) { return std::iscntrl(letter) != 0; }, ' ');
    fmt::print(stderr, "kivconvert: {}\n", line);
}

} // namespace kivconvert
