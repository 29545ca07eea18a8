// SPDX-License-Identifier: MIT
// What stands in the first bytes of an object.
#pragma once

#include <cstring>

/// The pointer that the object holds as its first member.
template <class Target, class Object>
const Target* first_member(const Object& object)
{
    const Target* target = nullptr;
    std::memcpy(&target, static_cast<const void*>(&object), sizeof target);
    return target;
}
