// SPDX-License-Identifier: MIT
// A program on the library as it was built with the recording data types: prints the calls that one function makes.
#include <KivDataConvert/KivDataConvert.h>

#include "recording.h"

#include <iostream>

int main()
{
    KivRegion region;
    region.test_name = "region";
    region.test_width = 3;
    region.test_height = 2;
    region.test_runs = {{1, 0, 1}};
    KivROI roi;
    roi.test_name = "roi";
    roi.test_parameters.test_name = "roi's parameters";

    recording::recorder().calls.clear();
    const int code = KIVMV::KivRegionToROI(region, &roi);
    for (const std::string& call : recording::recorder().calls) {
        std::cout << call << '\n';
    }
    return code;
}
