// SPDX-License-Identifier: MIT
#include <KivData/KivVarArray.h>

#include "argument_checks.h"

#include <algorithm>
#include <cstdint>
#include <utility>

KivVarArray::KivVarArray(std::initializer_list<KivVar> values)
{
    for (const KivVar& value : values) {
        Append(value);
    }
}

KivVarArray::KivVarArray(std::vector<int> ints) : ints_(kivdata::checked_elements("KivVarArray", std::move(ints))) {}

void KivVarArray::ReplaceFirst(const int* ints, std::size_t count)
{
    if (count > static_cast<std::size_t>(Length())) {
        throw_out_of_range(Length());
    }
    if (packed_) {
        std::copy_n(ints, count, ints_.begin());
    } else {
        std::copy_n(ints, count, vars_.begin());
    }
}

void KivVarArray::Remove(int index)
{
    check_index(index);
    if (packed_) {
        ints_.erase(ints_.begin() + index);
    } else {
        vars_.erase(vars_.begin() + index);
    }
}

void KivVarArray::check_room(std::size_t added) const
{
    kivdata::check_room("KivVarArray", static_cast<std::size_t>(Length()), added);
}

void KivVarArray::AppendRange(int first, int last)
{
    const std::int64_t values = std::int64_t{last} - first + 1;
    kivdata::check_room("KivVarArray", static_cast<std::size_t>(Length()), static_cast<std::uint64_t>(values));
    const auto added = static_cast<std::size_t>(values);
    if (packed_) {
        const std::size_t before = ints_.size();
        ints_.resize(before + added);
        for (std::size_t i = 0; i < added; ++i) {
            ints_[before + i] = first + static_cast<int>(i);
        }
    } else {
        const std::size_t before = vars_.size();
        vars_.resize(before + added);
        for (std::size_t i = 0; i < added; ++i) {
            vars_[before + i] = KivVar(first + static_cast<int>(i));
        }
    }
}

void KivVarArray::AppendCopies(int value, std::size_t count)
{
    check_room(count);
    if (packed_) {
        ints_.insert(ints_.end(), count, value);
    } else {
        vars_.insert(vars_.end(), count, KivVar(value));
    }
}

void KivVarArray::replace_slowly(int index, const KivVar& value)
{
    unpack();
    vars_[static_cast<std::size_t>(index)] = value;
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
    check_room(1);
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
