// SPDX-License-Identifier: MIT
// Integers of 128 bits, which compilers for 32-bit processors lack: Boost has them, a little slower.
#pragma once

#if !defined(__SIZEOF_INT128__)
#include <boost/multiprecision/cpp_int.hpp>
#endif

namespace kivrlc
{

#if defined(__SIZEOF_INT128__)
__extension__ using Wide = __int128;
__extension__ using UnsignedWide = unsigned __int128;
#else
using Wide = boost::multiprecision::int128_t;
using UnsignedWide = boost::multiprecision::uint128_t;
#endif

} // namespace kivrlc
