// SPDX-License-Identifier: MIT
#include "kivconvert/interruptions.h"

#include <gtest/gtest.h>

#include <csignal>
#include <iostream>
#include <unistd.h>

namespace
{

using kivconvert::UndoneByInterruption;

/// Waits for the end, but not for ever.
[[noreturn]] void wait_for_end()
{
    alarm(20);
    while (true) {
        pause();
    }
}

[[noreturn]] void be_interrupted(int signal)
{
    kivconvert::watch_for_interruptions();
    const UndoneByInterruption first([] { std::cerr << "first "; });
    {
        const UndoneByInterruption over([] { std::cerr << "over "; });
    }
    const UndoneByInterruption second([] { std::cerr << "second "; });
    kill(getpid(), signal);
    wait_for_end();
}

TEST(Interruptions, UndoWhatIsNotOver)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        EXPECT_EXIT(be_interrupted(signal), testing::KilledBySignal(signal), "^first second $");
    }
}

TEST(Interruptions, StayIgnored)
{
    const auto ignore = [] {
        std::signal(SIGHUP, SIG_IGN);
        kivconvert::watch_for_interruptions();
        kill(getpid(), SIGHUP);
        usleep(100'000); // long enough to end by it
        kill(getpid(), SIGTERM);
        wait_for_end();
    };
    EXPECT_EXIT(ignore(), testing::KilledBySignal(SIGTERM), "");
}

} // namespace
