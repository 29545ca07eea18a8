// SPDX-License-Identifier: MIT
// A folder for the files of one test, and the message of an expected error.
#pragma once

#include "kivconvert/errors.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace tools_tests
{

/// A fixture with an empty folder of its own, named after the test.
class ScratchFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
        folder_ = std::filesystem::path(testing::TempDir()) /
                  (std::string("kivconvert-") + test.test_suite_name() + "-" + test.name());
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::string path(const std::string& name) const { return (folder_ / name).generic_string(); }

    std::string put(const std::string& name, std::string_view bytes) const
    {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    std::string get(const std::string& name) const
    {
        std::ostringstream bytes;
        bytes << std::ifstream(path(name), std::ios::binary).rdbuf();
        return bytes.str();
    }

    std::ptrdiff_t files() const
    {
        return std::distance(std::filesystem::directory_iterator(folder_), std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path folder_;
};

/// What the InputError says that the work ends in.
template <class Work>
std::string complaint_of(Work work)
{
    try {
        work();
    } catch (const kivconvert::InputError& error) {
        return error.what();
    }
    return "no complaint";
}

} // namespace tools_tests
