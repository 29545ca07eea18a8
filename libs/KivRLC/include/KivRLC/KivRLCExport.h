// SPDX-License-Identifier: MIT
/// @file
/// Symbol visibility of libKivRLC.
#pragma once

// A static library, and a program that is linked with it, is compiled with KIV_STATIC; CMake's targets say so.
#if defined(_WIN32) && defined(KIV_STATIC)
#define KIVRLC_API
#elif defined(_WIN32) && defined(KivRLC_EXPORTS)
#define KIVRLC_API __declspec(dllexport)
#elif defined(_WIN32)
#define KIVRLC_API __declspec(dllimport)
#elif defined(__GNUC__)
#define KIVRLC_API __attribute__((visibility("default")))
#else
#define KIVRLC_API
#endif
