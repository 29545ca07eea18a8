// SPDX-License-Identifier: MIT
// The types of CLI11 that declarations name. Its own header takes seconds to compile, so only sources include it.
#pragma once

namespace CLI
{

class App;
class Option;

} // namespace CLI
