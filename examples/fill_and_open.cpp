// SPDX-License-Identifier: MIT
// Fill holes and open: a shape without the holes in it, and without what is too thin.
#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunMorphology.h>

#include <iostream>

/// A line for each row, a character for each pixel: # belongs to the set.
void show(const KivRunSet& set)
{
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 20; ++x) {
            std::cout << (set.Contains(x, y) ? '#' : '.');
        }
        std::cout << '\n';
    }
}

int main()
{
    // A part with a pinhole, a wire that leaves it, and a speck.
    const KivRunSet shape{{0, 2, 8}, {1, 2, 4}, {1, 6, 8}, {2, 2, 14}, {3, 2, 8}, {4, 2, 8}, {4, 17, 17}, {5, 2, 8}};
    show(shape);

    const KivRunSet filled = KivRuns::FillHoles(shape, KivRuns::Connectivity::Eight, 4); // holes of up to 4 pixels
    const KivRunSet opened = KivRuns::Open(filled, KivRuns::Element::Rectangle(3, 3));
    std::cout << "filled and opened:\n";
    show(opened);
    std::cout << (filled - opened).Area() << " pixels were too thin\n";
}
// Prints:
//   ..#######...........
//   ..###.###...........
//   ..#############.....
//   ..#######...........
//   ..#######........#..
//   ..#######...........
//   filled and opened:
//   ..#######...........
//   ..#######...........
//   ..#######...........
//   ..#######...........
//   ..#######...........
//   ..#######...........
//   7 pixels were too thin
