// SPDX-License-Identifier: MIT
// kivconvert: does on files what the library does in memory.
#include "kivconvert/failure.h"
#include "kivconvert/run.h"
#include "kivconvert/system.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace
{

/// What is printed may be buffered until the stream is flushed.
bool print(const std::string& text, std::FILE* stream)
{
    return std::fputs(text.c_str(), stream) >= 0 && std::fflush(stream) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    kivconvert::system::prepare();
    kivconvert::Outcome outcome = kivconvert::run({argv + 1, argv + argc});
    if (!outcome.out.empty() && !print(outcome.out, stdout)) {
        outcome.status = kivconvert::exit_status::wrong_input;
        outcome.err +=
            kivconvert::error_line(std::string("standard output: cannot be written: ") + std::strerror(errno));
    }
    print(outcome.err, stderr); // if this fails, only the exit status is left to report it
    return outcome.status;
}
