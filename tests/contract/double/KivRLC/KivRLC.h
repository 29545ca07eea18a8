// SPDX-License-Identifier: MIT
// The run extractor of the recording data types.
#pragma once

#include "../recording.h"

#include <opencv2/core.hpp>

#include <vector>

struct Run {
    int row;
    int colBegin;
    int colEnd;
};

class KivRLC : private recording::Counted
{
public:
    KivRLC() { recording::record_call("KivRLC()"); }
    ~KivRLC() { recording::recorder().calls.emplace_back("~KivRLC()"); }
    KivRLC(const KivRLC&) = delete;
    KivRLC& operator=(const KivRLC&) = delete;

    static void FindContours(cv::Mat& mask, char, std::vector<cv::Point_<int>>*, std::vector<int>*,
                             std::vector<cv::Vec<int, 4>>*, std::vector<int>*, std::vector<Run>* runs,
                             std::vector<int>*, bool, int, int, int, bool);
};
