// SPDX-License-Identifier: MIT
/// @file
/// Symbol visibility of libKivData.
#pragma once

// A static library, and a program that is linked with it, is compiled with KIV_STATIC; CMake's targets say so.
#if defined(_WIN32) && defined(KIV_STATIC)
#define KIVDATA_API
#elif defined(_WIN32) && defined(KivData_EXPORTS)
#define KIVDATA_API __declspec(dllexport)
#elif defined(_WIN32)
#define KIVDATA_API __declspec(dllimport)
#elif defined(__GNUC__)
#define KIVDATA_API __attribute__((visibility("default")))
#else
#define KIVDATA_API
#endif
