// SPDX-License-Identifier: MIT
/// @file
/// Prints a mask as text, so that the examples can show what they did.
#pragma once

#include <KivDataConvert/KivDataConvert.h>

#include <iostream>

/// A line for each row of the mask, a character for each pixel: # is foreground.
inline void show(const KivImage& mask)
{
    for (int y = 0; y < mask.Height(); ++y) {
        for (int x = 0; x < mask.Width(); ++x) {
            std::cout << (mask.Mat().at<unsigned char>(y, x) != 0 ? '#' : '.');
        }
        std::cout << '\n';
    }
}
