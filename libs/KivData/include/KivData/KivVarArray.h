// SPDX-License-Identifier: MIT
/// @file
/// KivVarArray: an array of variants.
#pragma once

#include <KivData/KivDataExport.h>
#include <KivData/KivVar.h>

#include <climits>
#include <cstddef>
#include <initializer_list>
#include <vector>

/// An array of KivVar with 0-based int indices and at most 2^31 - 1 elements.
///
/// As long as all elements are ints and no reference to one has been taken, they are kept packed, 4 bytes each (see
/// PackedInts()); this affects memory and speed only. Every operation either succeeds or throws and leaves the
/// array as it was: std::out_of_range for an index outside the array, std::bad_alloc, std::length_error past the
/// largest length.
///
/// Reading through the const members from several threads at once is safe. The non-const operator[] may rearrange the
/// storage even if it is only read through, so an array that is shared between threads must be shared as const.
class KIVDATA_API KivVarArray
{
public:
    KivVarArray() = default;                             ///< An empty array.
    KivVarArray(std::initializer_list<KivVar> values);   ///< The given values.
    explicit KivVarArray(std::vector<int> ints);         ///< The given ints, taken over without copying.
    KivVarArray(const KivVarArray& other) = default;     ///< Equal elements.
    KivVarArray(KivVarArray&& other) noexcept = default; ///< Leaves `other` empty.
    ~KivVarArray() = default;

    /// Becomes equal to `other`.
    KivVarArray& operator=(const KivVarArray& other) { return *this = KivVarArray(other); }

    /// Takes the elements over and leaves `other` empty.
    KivVarArray& operator=(KivVarArray&& other) noexcept = default;

    /// Number of elements.
    int Length() const noexcept { return static_cast<int>(packed_ ? ints_.size() : vars_.size()); }

    /// The element at `index`, 0 <= index < Length(). The reference holds until the array is next changed.
    KivVar& operator[](int index)
    {
        check_index(index);
        unpack();
        return vars_[static_cast<std::size_t>(index)];
    }

    /// A copy of the element at `index`, 0 <= index < Length().
    KivVar operator[](int index) const
    {
        check_index(index);
        const auto at = static_cast<std::size_t>(index);
        return packed_ ? KivVar(ints_[at]) : vars_[at];
    }

    /// Adds a copy of `value` at the end; `value` may be an element of this array.
    void Append(const KivVar& value)
    {
        if (packed_ && value.ValType() == KivVar::IntKind && ints_.size() < ints_.capacity() && Length() < INT_MAX) {
            ints_.push_back(value.I());
        } else {
            append_slowly(value);
        }
    }

    /// Overwrites the element at `index` by a copy of `value`.
    void Replace(int index, const KivVar& value)
    {
        check_index(index);
        if (packed_ && value.ValType() == KivVar::IntKind) {
            ints_[static_cast<std::size_t>(index)] = value.I();
        } else {
            replace_slowly(index, value);
        }
    }

    /// Overwrites the first `count` elements, at most Length(), by ints. Of an array that is kept packed this copies
    /// them.
    void ReplaceFirst(const int* ints, std::size_t count);

    void Remove(int index); ///< Takes the element at `index` out; later ones move up.
    void Clear() noexcept;  ///< Makes the array empty.

    /// Makes room for `length` ints in all; does nothing where there is room already or the array is not kept packed.
    void Reserve(std::size_t length)
    {
        if (packed_) {
            ints_.reserve(length);
        }
    }

    /// Adds the ints from `first` up to and including `last`, `first` <= `last`, in ascending order.
    void AppendRange(int first, int last);

    void AppendCopies(int value, std::size_t count); ///< Adds an int `count` times.

    /// The elements as a flat list, or null when the array is not (or no longer) kept packed. Holds until the array is
    /// next changed.
    const std::vector<int>* PackedInts() const noexcept { return packed_ ? &ints_ : nullptr; }

    /// Equal when of one length and equal element by element.
    friend bool operator==(const KivVarArray& a, const KivVarArray& b) noexcept { return a.equals(b); }
    friend bool operator!=(const KivVarArray& a, const KivVarArray& b) noexcept { return !a.equals(b); }

private:
    void check_index(int index) const
    {
        if (index < 0 || index >= Length()) {
            throw_out_of_range(index);
        }
    }
    void unpack()
    {
        if (packed_) {
            unpack_slowly();
        }
    }
    [[noreturn]] void throw_out_of_range(int index) const;
    void append_slowly(const KivVar& value);
    void check_room(std::size_t added) const;
    void replace_slowly(int index, const KivVar& value);
    void unpack_slowly();
    bool equals(const KivVarArray& other) const noexcept;

    // One of the two holds the elements, as packed_ says; the other one is empty.
    std::vector<int> ints_;
    std::vector<KivVar> vars_;
    bool packed_ = true;
};
