// SPDX-License-Identifier: MIT
// What the recording data types share: a log of calls with their arguments, a call that throws on request, a count of
// living objects, and a list of what the library did that it must not do.
#pragma once

#include <opencv2/core.hpp>

#include <optional>
#include <string>
#include <vector>

namespace recording
{

/// What a call throws that is made to fail.
struct Injected {
};

struct Recorder {
    std::vector<std::string> calls;      // calls on objects, in order; reading elements is counted but not listed
    std::vector<std::string> violations; // arrays that are not fresh, indices out of range
    long call_count = 0;                 // all calls, element access included
    long throw_at = 0;                   // the call that throws, counted from 1; 0 for none
    long living_objects = 0;
    std::optional<cv::Mat> rendered; // what ToMAT() gives; if nothing, a mask of the given size, all foreground
};

Recorder& recorder();

/// Counts a call, and throws Injected if it is the one that is to.
void count_call();

/// Counts a call and lists it.
void record_call(const std::string& text);

void record_violation(const std::string& text);

/// Counts living objects of the types that derive from it. As a base without members it leaves a first member first.
struct Counted {
    Counted() { ++recorder().living_objects; }
    Counted(const Counted&) { ++recorder().living_objects; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --recorder().living_objects; }
};

/// "2x3[0 255 0 | 7 0 0]": rows x columns and all bytes of the mask's pixels, row by row.
std::string text_of(const cv::Mat& mask);

} // namespace recording
