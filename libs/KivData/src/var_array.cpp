// SPDX-License-Identifier: MIT
#include <KivData/KivVarArray.h>

#include "argument_checks.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace
{

constexpr auto max_length = static_cast<std::size_t>(std::numeric_limits<int>::max());

} // namespace

KivVarArray::KivVarArray(std::initializer_list<KivVar> values)
{
    for (const KivVar& value : values) {
        Append(value);
    }
}

KivVarArray::KivVarArray(std::vector<int> ints) noexcept : ints_(std::move(ints)) {}

void KivVarArray::Remove(int index)
{
    check_index(index);
    if (packed_) {
        ints_.erase(ints_.begin() + index);
    } else {
        vars_.erase(vars_.begin() + index);
    }
}

void KivVarArray::Replace(int index, const KivVar& value)
{
    check_index(index);
    const auto at = static_cast<std::size_t>(index);
    if (packed_ && value.ValType() == KivVar::IntKind) {
        ints_[at] = value.I();
    } else {
        unpack();
        vars_[at] = value;
    }
}

void KivVarArray::Clear() noexcept
{
    ints_.clear();
    vars_.clear();
    packed_ = true;
}

void KivVarArray::throw_out_of_range(int index) const
{
    kivdata::throw_out_of_range("KivVarArray", index, Length());
}

void KivVarArray::append_slowly(const KivVar& value)
{
    if (static_cast<std::size_t>(Length()) == max_length) {
        throw std::length_error("KivVarArray: no room for more than 2^31 - 1 elements");
    }
    if (packed_ && value.ValType() == KivVar::IntKind) {
        ints_.push_back(value.I());
    } else {
        unpack();
        vars_.push_back(value);
    }
}

void KivVarArray::unpack_slowly()
{
    vars_.assign(ints_.begin(), ints_.end());
    ints_ = std::vector<int>();
    packed_ = false;
}

bool KivVarArray::equals(const KivVarArray& other) const noexcept
{
    if (packed_ && other.packed_) {
        return ints_ == other.ints_;
    }
    if (!packed_ && !other.packed_) {
        return vars_ == other.vars_;
    }
    const KivVarArray& ints = packed_ ? *this : other;
    const KivVarArray& vars = packed_ ? other : *this;
    return std::equal(ints.ints_.begin(), ints.ints_.end(), vars.vars_.begin(), vars.vars_.end(),
                      [](int a, const KivVar& b) { return KivVar(a) == b; });
}
