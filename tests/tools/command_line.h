// SPDX-License-Identifier: MIT
// kivconvert in process, in an empty folder, as it runs for its users.
#pragma once

#include "kivconvert/run.h"
#include "tools/scratch_folder.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace tools_tests
{

/// The words between the blanks of a text.
inline std::vector<std::string> words_of(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

class CommandLine : public ScratchFolder
{
protected:
    void SetUp() override
    {
        ScratchFolder::SetUp();
        before_ = std::filesystem::current_path();
        std::filesystem::current_path(path(""));
    }
    void TearDown() override
    {
        std::filesystem::current_path(before_);
        ScratchFolder::TearDown();
    }

    /// Runs kivconvert with the words of a text as arguments. A failure must say why in one line that begins with the
    /// name of the program. @returns what it prints: results, or the complaint without the program's name
    std::string run(int status, const std::string& arguments) const { return run(status, words_of(arguments)); }

    std::string run(int status, const std::vector<std::string>& arguments) const
    {
        static const std::string name = "kivconvert: ";
        const kivconvert::Outcome outcome = kivconvert::run(arguments);
        const std::string context = testing::PrintToString(arguments) + "\n" + outcome.err;
        EXPECT_EQ(outcome.status, status) << context;
        if (outcome.status == 0) {
            EXPECT_EQ(outcome.err, "") << context;
            return outcome.out;
        }
        EXPECT_EQ(outcome.out, "") << context;
        EXPECT_EQ(outcome.err.find(name), 0U) << context;
        EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << context;
        return outcome.err.substr(name.size(), outcome.err.size() - name.size() - 1);
    }

    /// Runs kivconvert, which must fail without leaving a file behind. @returns the complaint
    std::string refuse(int status, const std::string& arguments) const
    {
        const std::ptrdiff_t before = files();
        std::string complaint = run(status, arguments);
        EXPECT_EQ(files(), before) << arguments;
        return complaint;
    }

    void expect_same(const std::string& file, const std::string& other) const
    {
        EXPECT_TRUE(get(file) == get(other)) << file << " and " << other << " differ";
    }

    /// Whether `info` prints the line, with one blank after the first word.
    bool has_fact(const std::string& operand, const std::string& line) const
    {
        std::istringstream lines(run(0, "info " + operand));
        for (std::string fact; std::getline(lines, fact);) {
            std::istringstream fact_words(fact);
            std::string first;
            std::string rest;
            fact_words >> first >> std::ws;
            std::getline(fact_words, rest);
            if (first + " " + rest == line) {
                return true;
            }
        }
        return false;
    }

private:
    std::filesystem::path before_;
};

/// The texts of runs in a frame, for run files.
inline std::string run_file(int width, int height, const std::string& runs)
{
    return "# width=" + std::to_string(width) + " height=" + std::to_string(height) + "\nrow,colBegin,colEnd\n" + runs;
}

} // namespace tools_tests
