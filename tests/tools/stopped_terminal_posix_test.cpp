// SPDX-License-Identifier: MIT
// The program itself, with a terminal that takes no output: a pseudoterminal that nobody reads, and that is full.
#include "tools/scratch_folder.h"

#include <fmt/format.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{

constexpr int count = 20;

class FullTerminal
{
public:
    FullTerminal() : master_(posix_openpt(O_RDWR | O_NOCTTY))
    {
        grantpt(master_);
        unlockpt(master_);
        const int filler = open(ptsname(master_), O_WRONLY | O_NOCTTY | O_NONBLOCK);
        for (int refusals = 0; refusals < 20;) { // it makes some more room a little after it was full first
            if (write(filler, "full", 4) > 0) {
                refusals = 0;
            } else {
                ++refusals;
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        }
        close(filler);
    }
    FullTerminal(const FullTerminal&) = delete;
    FullTerminal& operator=(const FullTerminal&) = delete;
    ~FullTerminal() { close(master_); }

    const char* name() const { return ptsname(master_); }

private:
    int master_;
};

class StoppedTerminal : public tools_tests::ScratchFolder
{
protected:
    void SetUp() override
    {
        ScratchFolder::SetUp();
        std::filesystem::create_directory(path("in"));
        for (int i = 0; i < count; ++i) {
            put(fmt::format("in/{}.csv", i), "# width=7 height=5\nrow,colBegin,colEnd\n1,2,3\n");
        }
    }

    /// Converts the folder, with the terminal as standard error. @returns the process
    pid_t convert_folder() const
    {
        const pid_t process = fork();
        if (process == 0) {
            dup2(open(terminal_.name(), O_WRONLY | O_NOCTTY), STDERR_FILENO);
            execl(KIVCONVERT_PROGRAM, "kivconvert", "region", path("in").c_str(), "-o", path("out").c_str(), "--to",
                  "json", nullptr);
            _exit(127);
        }
        return process;
    }

    bool are_all_converted() const
    {
        for (int i = 0; i < count; ++i) {
            if (!std::filesystem::exists(path(fmt::format("out/{}.json", i)))) {
                return false;
            }
        }
        return true;
    }

    bool wait_for_conversion() const
    {
        using std::chrono::steady_clock;
        const auto deadline = steady_clock::now() + std::chrono::seconds(60);
        while (!are_all_converted() && steady_clock::now() < deadline) {
            std::this_thread::yield();
        }
        return are_all_converted();
    }

private:
    FullTerminal terminal_;
};

TEST_F(StoppedTerminal, DoesNotStopTheWork)
{
    const pid_t process = convert_folder();
    const bool converted = wait_for_conversion();
    EXPECT_TRUE(converted);
    if (!converted) {
        kill(process, SIGKILL);
    }
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST_F(StoppedTerminal, DoesNotKeepSignalsFromEndingTheProgram)
{
    put("in/damaged.csv", "no runs"); // its complaint is never printed, and the program waits for that
    for (const int signal : {SIGINT, SIGTERM}) {
        const pid_t process = convert_folder();
        EXPECT_TRUE(wait_for_conversion());
        kill(process, signal);
        int status = 0;
        alarm(60); // a program that does not end fails the test
        waitpid(process, &status, 0);
        alarm(0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
        std::filesystem::remove_all(path("out"));
    }
}

} // namespace
