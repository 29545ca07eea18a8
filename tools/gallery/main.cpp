// SPDX-License-Identifier: MIT
// kiv_gallery: shows every function of the library at work on one scene, as an HTML page.
//
// Exit status: 0 all results were as the page says; 1 one was not; 2 the folder cannot be written.
#include "gallery/page.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <fmt/format.h>

namespace
{

bool run_gallery(const std::string& folder)
{
    gallery::Stage stage = gallery::set_stage(folder + "/scene");
    const std::vector<gallery::Chapter> chapters = {
        gallery::raster_chapter(stage),  gallery::array_chapter(stage), gallery::point_chapter(),
        gallery::contour_chapter(stage), gallery::roi_chapter(stage),   gallery::algebra_chapter(stage),
        gallery::run_set_chapter(),
    };
    gallery::write_page(folder, stage, chapters);
    bool passed = stage.passed;
    for (const gallery::Chapter& chapter : chapters) {
        for (const gallery::Entry& entry : chapter.entries) {
            if (!entry.holds) {
                fmt::print(stderr, "kiv_gallery: {}: not what the page says: {}\n", entry.function, entry.found);
                passed = false;
            }
        }
    }
    fmt::print("{}/index.html\n", folder);
    return passed;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Shows every function of the library at work on one scene, as an HTML page."};
    std::string output = "gallery";
    app.add_option("-o,--output", output, "folder for the page")->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    try {
        return run_gallery(output) ? 0 : 1;
    } catch (const std::exception& error) {
        fmt::print(stderr, "kiv_gallery: {}\n", error.what());
        return 2;
    }
}
