// SPDX-License-Identifier: MIT
#include <KivData/KivVar.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

static_assert(sizeof(KivVar) == 16);

KivVar::KivVar(std::string text) : kind_(TextKind), text_(new std::string(std::move(text))) {}

int KivVar::int_of_other_kind() const noexcept
{
    if (kind_ == TextKind || std::isnan(double_)) {
        return 0;
    }
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(double_, lowest, highest));
}

bool KivVar::equals(const KivVar& other) const noexcept
{
    if (kind_ != other.kind_) {
        return false;
    }
    switch (kind_) {
    case IntKind:
        return int_ == other.int_;
    case DoubleKind:
        return double_ == other.double_;
    default:
        return *text_ == *other.text_;
    }
}

void KivVar::swap(KivVar& other) noexcept
{
    // Both kinds of object are a tag and eight trivially movable bytes; a text changes hands as its pointer.
    unsigned char bytes[sizeof(KivVar)];
    std::memcpy(bytes, static_cast<const void*>(this), sizeof bytes);
    std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof bytes);
    std::memcpy(static_cast<void*>(&other), bytes, sizeof bytes);
}
