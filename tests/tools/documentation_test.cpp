// SPDX-License-Identifier: MIT
// The manual page and the completion have the subcommands, options and shapes that the program has, and no others; the
// commands that the README shows can be run one after the other.
#include "kivconvert/commands.h"
#include "tools/command_line.h"

#include <CLI/CLI.hpp>

#include <map>
#include <regex>
#include <set>

namespace
{

using Words = std::set<std::string>;

std::string text_of(const std::string& file)
{
    std::ostringstream text;
    text << std::ifstream(KIV_TOOLS_FOLDER "/" + file).rdbuf();
    return text.str();
}

/// The first group of each match.
Words matches(const std::string& text, const std::string& pattern)
{
    const std::regex regex(pattern);
    Words words;
    for (std::sregex_iterator match(text.begin(), text.end(), regex); match != std::sregex_iterator(); ++match) {
        words.insert((*match)[1]);
    }
    return words;
}

Words words_in(const std::string& text)
{
    const std::vector<std::string> words = tools_tests::words_of(text);
    return {words.begin(), words.end()};
}

/// Between two lines, the second of which is the first one that follows and matches.
std::string part(const std::string& text, const std::string& from, const std::string& to)
{
    const auto begin = text.find(from);
    EXPECT_NE(begin, text.npos) << from;
    const auto behind = begin + from.size();
    return text.substr(behind, text.find(to, behind) - behind);
}

/// Long names of options; the help is an option of every subcommand.
Words options_of(const CLI::App& app)
{
    Words options;
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            options.insert("--" + name);
        }
    }
    for (const CLI::App* const group :
         app.get_subcommands([](const CLI::App* sub) { return sub->get_name().empty(); })) {
        options.merge(options_of(*group));
    }
    return options;
}

class Documentation : public tools_tests::CommandLine
{
protected:
    void SetUp() override
    {
        CommandLine::SetUp();
        kivconvert::add_commands(app_, outcome_);
        program_options_ = options_of(app_);
        for (const CLI::App* const command : app_.get_subcommands([](const CLI::App*) { return true; })) {
            commands_[command->get_name()] = options_of(*command);
        }
    }

    Words names() const
    {
        Words names;
        for (const auto& [name, options] : commands_) {
            names.insert(name);
        }
        return names;
    }

    CLI::App app_;
    kivconvert::Outcome outcome_;
    Words program_options_;
    std::map<std::string, Words> commands_;
};

TEST_F(Documentation, CompletesSubcommandsAndOptions)
{
    const std::string script = text_of("kivconvert/doc/kivconvert.bash");
    EXPECT_EQ(words_in(part(script, "choices='region", "'") + " region"), names());
    EXPECT_EQ(words_in(part(script, "choices+='", "'")), program_options_);
    for (const auto& [name, options] : commands_) {
        Words completed = words_in(part(script, "    " + name + ") options='", "'"));
        completed.insert("--help");
        EXPECT_EQ(completed, options) << name;
    }
}

TEST_F(Documentation, DescribesEverySubcommandOptionAndShape)
{
    const std::string page = text_of("kivconvert/doc/kivconvert.1");
    const std::string synopsis = part(page, ".Sh SYNOPSIS", ".Sh DESCRIPTION");
    EXPECT_EQ(matches(synopsis, "\n\\.Cm ([a-z]+)\n"), names());
    Words all = program_options_;
    for (const auto& [name, options] : commands_) {
        Words in_synopsis = matches(part(synopsis, "\n.Cm " + name + "\n", "\n.Nm"), "Fl (-[a-z-]+)");
        Words expected;
        for (const std::string& option : options) {
            if (option != "--help" && option != "--output") {
                expected.insert(option.substr(1));
            }
        }
        EXPECT_EQ(in_synopsis, expected) << name;
        all.insert(options.begin(), options.end());
    }
    Words described;
    for (const std::string& line : matches(part(page, "The options are:", "\n.El"), "\n(\\.It Fl [^\n]*)")) {
        for (const std::string& name : matches(line, "Fl (-[a-z-]+)")) {
            described.insert("-" + name);
        }
    }
    all.insert("--roi"); // replaced before the command line is parsed
    EXPECT_EQ(described, all);
}

TEST_F(Documentation, NamesEveryShape)
{
    const Words shapes = matches(run(0, "region --help"), "\n *--roi ([a-z-]+:)");
    EXPECT_EQ(shapes.size(), 7U);
    EXPECT_EQ(matches(text_of("kivconvert/doc/kivconvert.1"), "\n\\.It Cm ([a-z-]+:) Ns"), shapes);
    EXPECT_EQ(words_in(part(text_of("kivconvert/doc/kivconvert.bash"), "shapes='", "'")), shapes);
}

TEST_F(Documentation, ShowsCommandsThatCanBeRun)
{
    std::filesystem::create_directory("masks");
    for (const std::string file : {"parts.png", "masks/1.png"}) {
        run(0, "image roi:ring:640,480,170,450 --width 1280 --height 960 -o " + file);
    }
    std::istringstream lines(part(text_of("README.md"), "```sh\n", "```"));
    int commands = 0;
    for (std::string line; std::getline(lines, line); ++commands) {
        ASSERT_EQ(line.find("kivconvert "), 0U);
        run(0, line.substr(line.find(' ')));
    }
    EXPECT_GT(commands, 2);
}

} // namespace
