// SPDX-License-Identifier: MIT
#include "foundation/variants.h"

#include "foundation/bulk.h"

namespace kiv
{
namespace
{

template <class Array>
const std::vector<int>* packed_ints(const Array& values)
{
    if constexpr (KeepsPackedInts<Array>) {
        return values.PackedInts();
    } else {
        return nullptr;
    }
}

template <class Array>
void write(Array& values, int index, const KivVar& value)
{
    if constexpr (KeepsPackedInts<Array>) {
        values.Replace(index, value); // leaves a packed array packed
    } else {
        values[index] = value;
    }
}

} // namespace

VariantReader::VariantReader(KivVarArray& values) : values_(values), packed_(packed_ints(values)) {}

bool VariantReader::is_number(int index) const
{
    if (packed_ != nullptr) {
        return true;
    }
    const int type = values_[index].ValType();
    return type == 0 || type == 1;
}

int VariantReader::value(int index) const
{
    return packed_ != nullptr ? packed_->at(static_cast<std::size_t>(index)) : values_[index].I();
}

void write_int(KivVarArray& values, int index, int value)
{
    write(values, index, KivVar(value));
}

} // namespace kiv
