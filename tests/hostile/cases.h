// SPDX-License-Identifier: MIT
// Calls with hostile arguments, and what each must lead to, as text: a result code by its name and what the output
// holds, or an exception.
#pragma once

#include "support/coordinates.h"
#include "support/rasters.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <functional>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace hostile
{

struct Case {
    std::string name;
    std::function<std::string()> call;
    std::string outcome;

    friend std::ostream& operator<<(std::ostream& out, const Case& hostile_case) { return out << hostile_case.name; }
};

using Cases = std::vector<Case>;

Cases array_cases();
Cases raster_cases();
Cases contour_cases();
Cases roi_cases();
Cases algebra_cases();

/// Blocks larger than this cannot be had while the cases run.
inline constexpr std::size_t largest_block = std::size_t{16} << 20;

/// What is expected where memory would have to be larger than that, as the data types and OpenCV say it.
inline const std::string too_large = "out of memory";

std::string name_of(int code);

template <class Value>
std::string shown(const Value& value)
{
    if constexpr (std::is_same_v<Value, KivRegion> || std::is_same_v<Value, KivROI>) {
        return support::described(value);
    } else if constexpr (std::is_base_of_v<KivMatHolder, Value>) {
        return support::text_of(value.Mat());
    } else {
        return support::text_of(value);
    }
}

/// A code and what the output holds after it.
template <class... Outputs>
std::string outcome(int code, const Outputs&... outputs)
{
    return (name_of(code) + ... + ("; " + shown(outputs)));
}

/// What is left of a moved-from object.
template <class Value>
Value moved_from(Value value)
{
    Value taken(std::move(value));
    return value;
}

} // namespace hostile
