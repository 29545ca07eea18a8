// SPDX-License-Identifier: MIT
// Part files of a program that is killed.
#include "kivconvert/part_file.h"
#include "tools/scratch_folder.h"

#include <csignal>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace
{

using KilledProgramDeathTest = tools_tests::ScratchFolder;
using kivconvert::PartFile;

bool has_files_without_names(const std::string& folder)
{
    const int file = open(folder.c_str(), O_TMPFILE | O_WRONLY, 0600);
    close(file);
    return file >= 0;
}

TEST_F(KilledProgramDeathTest, LeavesNothingBehind)
{
    if (!has_files_without_names(path(""))) {
        GTEST_SKIP() << "this file system has no files without a name";
    }
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGKILL}) {
        const auto write_and_be_killed = [&] {
            PartFile part(path("a"));
            if (part.write("half")) {
                kill(getpid(), signal);
            }
        };
        EXPECT_EXIT(write_and_be_killed(), testing::KilledBySignal(signal), "");
        EXPECT_EQ(files(), 0);
    }
}

} // namespace
