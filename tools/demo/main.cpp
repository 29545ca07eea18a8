// SPDX-License-Identifier: MIT
// kiv_demo: converts pictures, or one that it draws itself, by the library, checks the results and shows them.
//
// Exit status: 0 all checks passed; 1 a check failed; 2 a picture cannot be read, or a folder cannot be written.
#include "demo/pictures.h"
#include "demo/scene/scene.h"
#include "demo/steps.h"
#include "kivconvert/errors.h"
#include "kivconvert/region_files.h"
#include "kivconvert/visible_pixels.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <exception>
#include <filesystem>
#include <fmt/format.h>

namespace
{

bool run_step(const demo::Step& step, demo::Inspection& inspection)
{
    const demo::Report report = step.run(inspection);
    fmt::print("{:<26}{:>10}{:>8}{:>9.2f}  {}{}\n", step.name, kivconvert::visible_pixels(report.region).Area(),
               report.region.Runs().size(), report.milliseconds, report.passed ? "" : "FAILED: ", report.remark);
    return report.passed;
}

bool run_steps(const std::string& title, const KivImage& camera, const std::string& folder)
{
    std::filesystem::create_directories(folder);
    demo::Inspection inspection;
    inspection.folder = folder;
    inspection.camera = camera;
    fmt::print("{}, {} x {}\n{:<26}{:>10}{:>8}{:>9}  check\n", title, camera.Width(), camera.Height(), "step", "pixels",
               "runs", "ms");
    bool passed = true;
    for (const demo::Step& step : demo::steps) {
        passed = run_step(step, inspection) && passed;
    }
    demo::write_contact_sheet(inspection);
    fmt::print("pictures: {}\n\n", folder);
    return passed;
}

bool run_demo(const std::vector<std::string>& images, const std::string& output)
{
    if (images.empty()) {
        return run_steps("a scene drawn by the demo", KivImage(demo::scene::draw()), output);
    }
    bool passed = true;
    for (std::size_t i = 0; i < images.size(); ++i) {
        const std::string name = std::filesystem::path(images[i]).stem().string();
        const std::string folder = fmt::format("{}/{}-{}", output, i + 1, name);
        passed = run_steps(images[i], demo::read_camera_picture(images[i]), folder) && passed;
    }
    return passed;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Converts pictures, or one that it draws itself, by the library and checks every step."};
    std::vector<std::string> images;
    std::string output = "demo";
    app.add_option("IMAGE", images, "8-bit pictures");
    app.add_option("-o,--output", output, "folder for the pictures")->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    try {
        return run_demo(images, output) ? 0 : 1;
    } catch (const std::exception& error) {
        fmt::print(stderr, "kiv_demo: {}\n", error.what());
        return 2;
    }
}
