// SPDX-License-Identifier: MIT
#pragma once

#include <KivData/KivData.h>

namespace kiv
{

/// Whether a variant is of one of the two kinds that KivVar::I() makes an int of.
inline bool is_number(const KivVar& value)
{
    const int type = value.ValType();
    return type == 0 || type == 1;
}

} // namespace kiv
