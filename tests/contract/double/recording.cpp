// SPDX-License-Identifier: MIT
#include "recording.h"

#include <sstream>

namespace recording
{

Recorder& recorder()
{
    static Recorder the_recorder;
    return the_recorder;
}

void count_call()
{
    if (++recorder().call_count == recorder().throw_at) {
        throw Injected();
    }
}

void record_call(const std::string& text)
{
    recorder().calls.push_back(text);
    count_call();
}

void record_violation(const std::string& text)
{
    recorder().violations.push_back(text);
}

std::string text_of(const cv::Mat& mask)
{
    std::ostringstream text;
    text << mask.rows << "x" << mask.cols << "[";
    for (int y = 0; y < mask.rows; ++y) {
        const auto bytes = static_cast<int>(static_cast<std::size_t>(mask.cols) * mask.elemSize());
        for (int i = 0; i < bytes; ++i) {
            text << (i > 0 ? " " : y > 0 ? " | " : "") << static_cast<int>(mask.ptr(y)[i]);
        }
    }
    text << "]";
    return text.str();
}

} // namespace recording
