// SPDX-License-Identifier: MIT
// A value made when first asked for.
#pragma once

#include <functional>
#include <optional>
#include <utility>

namespace bench
{

template <class Value>
class Lazy
{
public:
    explicit Lazy(std::function<Value()> make) : make_(std::move(make)) {}

    Value& operator()()
    {
        if (!value_) {
            value_.emplace(make_());
        }
        return *value_;
    }

private:
    std::function<Value()> make_;
    std::optional<Value> value_;
};

} // namespace bench
