// SPDX-License-Identifier: MIT
// The signals are blocked, and a thread of its own waits for them: it may lock, allocate and print, as no signal
// handler may.
#include "kivconvert/interruptions.h"

#include <csignal>
#include <system_error>
#include <thread>
#include <utility>

namespace kivconvert
{
namespace
{

struct Undos {
    std::recursive_mutex mutex;
    std::list<std::function<void()>> list;
};

Undos& undos()
{
    static auto& living = *new Undos; // for ever, since a signal may come while the program ends
    return living;
}

void end_by_signal(sigset_t signals)
{
    int signal = 0;
    sigwait(&signals, &signal);
    const auto nothing_else = hold_interruptions();
    for (const auto& undo : undos().list) {
        undo();
    }
    std::signal(signal, SIG_DFL);
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    std::raise(signal);
}

bool is_ignored(int signal)
{
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

} // namespace

UndoneByInterruption::UndoneByInterruption(std::function<void()> undo)
{
    const auto lock = hold_interruptions();
    undo_ = undos().list.insert(undos().list.end(), std::move(undo));
}

UndoneByInterruption::~UndoneByInterruption()
{
    const auto lock = hold_interruptions();
    undos().list.erase(undo_);
}

std::unique_lock<std::recursive_mutex> hold_interruptions()
{
    return std::unique_lock(undos().mutex);
}

void watch_for_interruptions()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (!is_ignored(signal)) {
            sigaddset(&signals, signal);
        }
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    try {
        std::thread(end_by_signal, signals).detach();
    } catch (const std::system_error&) { // no thread can be had: they end the program at once
        pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    }
}

} // namespace kivconvert
