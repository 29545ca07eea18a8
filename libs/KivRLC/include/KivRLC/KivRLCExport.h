// SPDX-License-Identifier: MIT
/// @file
/// Symbol visibility of libKivRLC.
#pragma once

#if defined(__GNUC__)
#define KIVRLC_API __attribute__((visibility("default")))
#else
#define KIVRLC_API
#endif
