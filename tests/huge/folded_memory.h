// SPDX-License-Identifier: MIT
// Vectors longer than memory: what is asked of operator new in one piece of 4 GiB or more is mapped onto the same 256
// MiB again and again. Elements so far apart overwrite each other, which is no matter where only their number counts.
#pragma once

namespace huge
{

/// Whether this program can fold memory: where it replaces operator new, which a sanitizer's build leaves alone.
bool can_fold_memory();

} // namespace huge
