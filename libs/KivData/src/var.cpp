// SPDX-License-Identifier: MIT
#include <KivData/KivVar.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

// A number and its kind: 16 bytes, or 12 where doubles need not be aligned, as on i386.
static_assert(sizeof(KivVar) == sizeof(double) + alignof(double));

KivVar::KivVar(std::string text) : kind_(TextKind)
{
    payload_.as_text = new std::string(std::move(text));
}

void KivVar::throw_beyond_int(const std::string& value)
{
    throw std::out_of_range("KivVar: " + value + " is outside the range of int");
}

int KivVar::int_of_other_kind() const noexcept
{
    if (kind_ == TextKind || std::isnan(payload_.as_double)) {
        return 0;
    }
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(payload_.as_double, lowest, highest));
}

bool KivVar::equals(const KivVar& other) const noexcept
{
    if (kind_ != other.kind_) {
        return false;
    }
    switch (kind_) {
    case IntKind:
        return payload_.as_int == other.payload_.as_int;
    case DoubleKind:
        return payload_.as_double == other.payload_.as_double;
    default:
        return *payload_.as_text == *other.payload_.as_text;
    }
}

void KivVar::swap(KivVar& other) noexcept
{
    std::swap(kind_, other.kind_);
    std::swap(payload_, other.payload_);
}
