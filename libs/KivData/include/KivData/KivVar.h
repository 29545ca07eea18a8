// SPDX-License-Identifier: MIT
/// @file
/// KivVar: one value that is an int, a double or a text.
#pragma once

#include <KivData/KivDataExport.h>

#include <limits>
#include <string>
#include <type_traits>
#include <utility>

/// A value of one of three kinds: int, double or text. 16 bytes; an int or a double needs no further memory.
///
/// A moved-from KivVar is the int 0.
class KIVDATA_API KivVar
{
    template <class T>
    using IfOtherInteger = std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, int>>;

    template <class T, class... Types>
    static constexpr bool is_one_of = (std::is_same_v<T, Types> || ...);

    template <class T>
    using IfOtherNumber =
        std::enable_if_t<is_one_of<T, signed char, unsigned char, short, unsigned short, unsigned, long, unsigned long,
                                   long long, unsigned long long, float, long double>>;

    template <class T, class Result>
    using IfNumber = std::enable_if_t<std::is_arithmetic_v<T>, Result>;

public:
    /// The type tags that ValType() returns.
    enum Kind : int {
        IntKind = 0,    ///< a 32-bit signed int
        DoubleKind = 1, ///< a double
        TextKind = 2,   ///< a text
    };

    KivVar() noexcept : kind_(IntKind) { payload_.as_int = 0; }                       ///< The int 0.
    KivVar(int value) noexcept : kind_(IntKind) { payload_.as_int = value; }          ///< An int.
    KivVar(double value) noexcept : kind_(DoubleKind) { payload_.as_double = value; } ///< A double.
    KivVar(std::string text);                                                         ///< A text.
    KivVar(const char* text) : KivVar(std::string(text)) {}                           ///< A text; must not be null.

    /// An int, from any other integral type.
    ///
    /// @throws std::out_of_range if the value is outside the range of int.
    template <class Integer, class = IfOtherInteger<Integer>>
    KivVar(Integer value) : KivVar(checked_int(value))
    {
    }

    inline KivVar(const KivVar& other);                         ///< An equal value.
    KivVar(KivVar&& other) noexcept : KivVar() { swap(other); } ///< Takes the value over.
    inline KivVar& operator=(KivVar&& other) noexcept;          ///< Takes the value over.
    inline ~KivVar();

    /// Becomes equal to `other`; on std::bad_alloc (texts only) it keeps its value.
    inline KivVar& operator=(const KivVar& other);

    /// The type tag: one of Kind.
    int ValType() const noexcept { return kind_; }

    /// The value as int. A double is truncated toward zero and saturated to the range of int, NaN gives 0; a text
    /// gives 0.
    int I() const noexcept { return kind_ == IntKind ? payload_.as_int : int_of_other_kind(); }

    /// The value as double. An int is exact; a text gives 0.
    double D() const noexcept
    {
        return kind_ == IntKind ? payload_.as_int : kind_ == DoubleKind ? payload_.as_double : 0.0;
    }

    /// The text; empty for an int or a double.
    std::string S() const { return kind_ == TextKind ? *payload_.as_text : std::string(); }

    operator int() const noexcept { return I(); }    ///< The same as I().
    operator double() const noexcept { return D(); } ///< The same as D().

    /// The value as any other arithmetic type except bool and the character types. To an integral type it is converted
    /// as I() converts it to int: truncated toward zero and saturated to the type's range, 0 for NaN and for a text. To
    /// a floating-point type D() is converted.
    template <class Number, class = IfOtherNumber<Number>>
    operator Number() const noexcept
    {
        if constexpr (std::is_floating_point_v<Number>) {
            return static_cast<Number>(D());
        } else {
            return saturated<Number>(D());
        }
    }

    /// Exchanges two values.
    void swap(KivVar& other) noexcept;

    /// Equal when of one kind and of one value: the int 1 and the double 1.0 differ.
    friend bool operator==(const KivVar& a, const KivVar& b) noexcept { return a.equals(b); }
    friend bool operator!=(const KivVar& a, const KivVar& b) noexcept { return !a.equals(b); }

    /// Equal to a number when the variant is an int or a double of exactly that value: the int 1 and the double 1.0
    /// both equal 1. No text equals a number. The number may be of any arithmetic type.
    template <class Number>
    friend auto operator==(const KivVar& a, Number b) noexcept -> IfNumber<Number, bool>
    {
        return a.equals_number(b);
    }
    /// The same with the number first.
    template <class Number>
    friend auto operator==(Number a, const KivVar& b) noexcept -> IfNumber<Number, bool>
    {
        return b.equals_number(a);
    }
    template <class Number>
    friend auto operator!=(const KivVar& a, Number b) noexcept -> IfNumber<Number, bool>
    {
        return !a.equals_number(b);
    }
    template <class Number>
    friend auto operator!=(Number a, const KivVar& b) noexcept -> IfNumber<Number, bool>
    {
        return !b.equals_number(a);
    }

private:
    union Payload {
        int as_int;
        double as_double;
        std::string* as_text;
    };

    /// Compares in double: it may round `value`, but never across an end of the range of int.
    template <class Integer>
    static int checked_int(Integer value)
    {
        const auto rounded = static_cast<double>(value);
        if (rounded < std::numeric_limits<int>::min() || rounded > std::numeric_limits<int>::max()) {
            throw_beyond_int(std::to_string(value));
        }
        return static_cast<int>(value);
    }

    template <class Integer>
    static Integer saturated(double value) noexcept
    {
        using Limits = std::numeric_limits<Integer>;
        if (value != value) {
            return 0;
        }
        if (value <= static_cast<double>(Limits::min())) {
            return Limits::min();
        }
        return value >= static_cast<double>(Limits::max()) ? Limits::max() : static_cast<Integer>(value);
    }

    template <class Number>
    bool equals_number(Number number) const noexcept
    {
        if (kind_ == TextKind) {
            return false;
        }
        if constexpr (std::is_floating_point_v<Number>) {
            return D() == number;
        } else {
            return equals_integer(D(), number);
        }
    }

    /// Converts the double, as the integer might be rounded. All doubles from the least integer up to one beyond the
    /// greatest can be converted, but lose their fraction.
    template <class Integer>
    static bool equals_integer(double value, Integer number) noexcept
    {
        using Limits = std::numeric_limits<Integer>;
        constexpr double stop = 2 * static_cast<double>(Limits::max() / 2 + 1); // a power of two, and so exact
        if (!(value >= static_cast<double>(Limits::min()) && value < stop)) {
            return false;
        }
        const auto whole = static_cast<Integer>(value);
        return whole == number && static_cast<double>(whole) == value;
    }

    [[noreturn]] static void throw_beyond_int(const std::string& value);
    int int_of_other_kind() const noexcept;
    bool equals(const KivVar& other) const noexcept;

    int kind_;
    Payload payload_;
};

inline KivVar::KivVar(const KivVar& other) : kind_(other.kind_), payload_(other.payload_)
{
    if (kind_ == TextKind) {
        payload_.as_text = new std::string(*other.payload_.as_text);
    }
}

inline KivVar::~KivVar()
{
    if (kind_ == TextKind) {
        delete payload_.as_text;
    }
}

inline KivVar& KivVar::operator=(const KivVar& other)
{
    if (kind_ == IntKind && other.kind_ == IntKind) {
        payload_.as_int = other.payload_.as_int;
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
