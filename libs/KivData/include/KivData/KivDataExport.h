// SPDX-License-Identifier: MIT
/// @file
/// Symbol visibility of libKivData.
#pragma once

#if defined(__GNUC__)
#define KIVDATA_API __attribute__((visibility("default")))
#else
#define KIVDATA_API
#endif
