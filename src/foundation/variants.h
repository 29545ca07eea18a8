// SPDX-License-Identifier: MIT
// Numbers in arrays of variants, read and written one by one.
#pragma once

#include <KivData/KivData.h>

#include <vector>

namespace kiv
{

/// Reads an array of variants. Where the data types keep ints packed and show them, it reads those: asking the array
/// for an element would unpack it, which two readers of one array must not do at the same time.
class VariantReader
{
public:
    explicit VariantReader(KivVarArray& values);

    int length() const { return values_.Length(); }

    /// Whether an element is of one of the two kinds that an int can be made of.
    bool is_number(int index) const;

    int value(int index) const;

private:
    KivVarArray& values_;
    const std::vector<int>* packed_;
};

/// Sets an element of an array to an int.
void write_int(KivVarArray& values, int index, int value);

} // namespace kiv
