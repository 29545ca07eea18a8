// SPDX-License-Identifier: MIT
// What a signal that ends the program must not leave behind.
#pragma once

#include <functional>
#include <list>
#include <mutex>

namespace kivconvert
{

/// Something that is undone if the program is interrupted while the object lives.
class UndoneByInterruption
{
public:
    explicit UndoneByInterruption(std::function<void()> undo);
    UndoneByInterruption(const UndoneByInterruption&) = delete;
    UndoneByInterruption& operator=(const UndoneByInterruption&) = delete;
    ~UndoneByInterruption();

private:
    std::list<std::function<void()>>::iterator undo_;
};

/// No interruption comes between as long as the lock is held: for doing something and saying how it is undone.
std::unique_lock<std::recursive_mutex> hold_interruptions();

/// From now on SIGINT, SIGTERM and SIGHUP end the program after all has been undone. To be called once, before there
/// are other threads; signals that were ignored stay so.
void watch_for_interruptions();

} // namespace kivconvert
