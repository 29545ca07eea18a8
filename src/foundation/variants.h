// SPDX-License-Identifier: MIT
// Numbers in arrays of variants, read and written one by one.
#pragma once

#include "foundation/bulk.h"

#include <KivData/KivData.h>

#include <vector>

namespace kiv
{

/// The elements of an array as a flat list where the data types keep ints packed and show them; otherwise null.
template <class Array>
const std::vector<int>* packed_ints(const Array& values)
{
    if constexpr (KeepsPackedInts<Array>) {
        return values.PackedInts();
    } else {
        return nullptr;
    }
}

/// Reads an array of variants, packed ints as such: asking the array for an element would unpack it, which costs time
/// and must not be done by two readers of one array at the same time.
class VariantReader
{
public:
    explicit VariantReader(KivVarArray& values) : values_(values), packed_(packed_ints(values)) {}

    int length() const { return values_.Length(); }

    /// Whether an element is of one of the two kinds that an int can be made of.
    bool is_number(int index) const { return packed_ != nullptr || is_number_kind(values_[index].ValType()); }

    /// An index past the end is refused by the array itself.
    int value(int index) const
    {
        const auto at = static_cast<std::size_t>(index);
        return packed_ != nullptr && at < packed_->size() ? (*packed_)[at] : values_[index].I();
    }

private:
    static bool is_number_kind(int type) { return type == 0 || type == 1; }

    KivVarArray& values_;
    const std::vector<int>* packed_;
};

/// Sets an element of an array to an int; a packed array stays packed.
template <class Array>
void write_int(Array& values, int index, int value)
{
    if constexpr (KeepsPackedInts<Array>) {
        values.Replace(index, KivVar(value));
    } else {
        values[index] = KivVar(value);
    }
}

} // namespace kiv
