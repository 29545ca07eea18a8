// SPDX-License-Identifier: MIT
// What is in a file: info.
#include "kivconvert/commands.h"
#include "kivconvert/image_files.h"
#include "kivconvert/region_facts.h"
#include "kivconvert/region_files.h"
#include "kivconvert/run_files.h"

#include <fmt/format.h>
#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

void print_region(const KivRegion& region)
{
    const RegionFacts facts = facts_of(region);
    fmt::print("frame      {} x {}\n", region.Width(), region.Height());
    fmt::print("runs       {}\n", facts.runs);
    fmt::print("pixels     {}\n", facts.pixels);
    if (facts.pixels > 0) {
        fmt::print("columns    {} to {}\n", facts.columns.first, facts.columns.last);
        fmt::print("rows       {} to {}\n", facts.rows.first, facts.rows.last);
    }
    if (facts.outside > 0) {
        fmt::print("outside    {} runs reach outside the frame or cover nothing\n", facts.outside);
    }
}

void print_image(const std::string& path)
{
    KivImage image = read_grey_image(path);
    const KivRegion region = region_of(image, path);
    fmt::print("kind       image; the runs are those of its non-zero pixels\n");
    print_region(region);
}

void print_runs(const std::string& path)
{
    const KivRegion region = read_runs(path);
    fmt::print("kind       runs\n");
    print_region(region);
}

} // namespace

void add_info_command(CLI::App& app)
{
    const auto path = std::make_shared<std::string>();
    CLI::App* const command = app.add_subcommand("info", "Tells the frame, runs and pixels of a file");
    command->add_option("FILE", *path, "run file or image")->required();
    command->callback([path] { is_run_file(*path) ? print_runs(*path) : print_image(*path); });
}

} // namespace kivconvert
