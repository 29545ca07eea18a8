// SPDX-License-Identifier: MIT
/// @file
/// KivVar: one value that is an int, a double or a text.
#pragma once

#include <KivData/KivDataExport.h>

#include <string>
#include <utility>

/// A value of one of three kinds: int, double or text. 16 bytes; an int or a double needs no further memory.
///
/// A moved-from KivVar is the int 0.
class KIVDATA_API KivVar
{
public:
    /// The type tags that ValType() returns.
    enum Kind : int {
        IntKind = 0,    ///< a 32-bit signed int
        DoubleKind = 1, ///< a double
        TextKind = 2,   ///< a text
    };

    KivVar() noexcept : kind_(IntKind), int_(0) {}                       ///< The int 0.
    KivVar(int value) noexcept : kind_(IntKind), int_(value) {}          ///< An int.
    KivVar(double value) noexcept : kind_(DoubleKind), double_(value) {} ///< A double.
    KivVar(std::string text);                                            ///< A text.
    KivVar(const char* text) : KivVar(std::string(text)) {}              ///< A text; must not be null.
    KivVar(const KivVar& other);                                         ///< An equal value.
    KivVar(KivVar&& other) noexcept : KivVar() { swap(other); }          ///< Takes the value over.
    KivVar& operator=(KivVar&& other) noexcept;                          ///< Takes the value over.
    ~KivVar();

    /// Becomes equal to `other`; on std::bad_alloc (texts only) it keeps its value.
    KivVar& operator=(const KivVar& other);

    /// The type tag: one of Kind.
    int ValType() const noexcept { return kind_; }

    /// The value as int. A double is truncated toward zero and saturated to the range of int, NaN gives 0; a text
    /// gives 0.
    int I() const noexcept { return kind_ == IntKind ? int_ : int_of_other_kind(); }

    /// The value as double. An int is exact; a text gives 0.
    double D() const noexcept { return kind_ == IntKind ? int_ : kind_ == DoubleKind ? double_ : 0.0; }

    /// The text; empty for an int or a double.
    std::string S() const { return kind_ == TextKind ? *text_ : std::string(); }

    operator int() const noexcept { return I(); }    ///< The same as I().
    operator double() const noexcept { return D(); } ///< The same as D().

    /// Exchanges two values.
    void swap(KivVar& other) noexcept;

    /// Equal when of one kind and of one value: the int 1 and the double 1.0 differ. With a number compare I() or D():
    /// which of them `value == 1` means, the compiler cannot tell.
    friend bool operator==(const KivVar& a, const KivVar& b) noexcept { return a.equals(b); }
    friend bool operator!=(const KivVar& a, const KivVar& b) noexcept { return !a.equals(b); }

private:
    int int_of_other_kind() const noexcept;
    bool equals(const KivVar& other) const noexcept;

    int kind_;
    union {
        int int_;
        double double_;
        std::string* text_;
    };
};

inline KivVar::KivVar(const KivVar& other) : kind_(other.kind_), double_(0.0)
{
    switch (kind_) {
    case IntKind:
        int_ = other.int_;
        break;
    case DoubleKind:
        double_ = other.double_;
        break;
    default:
        text_ = new std::string(*other.text_);
    }
}

inline KivVar::~KivVar()
{
    if (kind_ == TextKind) {
        delete text_;
    }
}

inline KivVar& KivVar::operator=(const KivVar& other)
{
    if (kind_ == IntKind && other.kind_ == IntKind) {
        int_ = other.int_;
    } else {
        KivVar(other).swap(*this);
    }
    return *this;
}

inline KivVar& KivVar::operator=(KivVar&& other) noexcept
{
    KivVar(std::move(other)).swap(*this);
    return *this;
}
