// SPDX-License-Identifier: MIT
#include "demo/scene/scene.h"
#include "demo/steps.h"
#include "gallery/gallery.h"
#include "kivconvert/region_files.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <stdexcept>

namespace gallery
{

const demo::Picture& Stage::picture(const std::string& name) const
{
    const auto found = std::find_if(scene.pictures.begin(), scene.pictures.end(),
                                    [&](const demo::Picture& picture) { return picture.name == name; });
    if (found == scene.pictures.end()) {
        throw std::invalid_argument("no step of the demo makes a picture named " + name);
    }
    return *found;
}

Stage set_stage(const std::string& folder)
{
    std::filesystem::create_directories(folder);
    Stage stage;
    stage.scene.folder = folder;
    stage.scene.camera = KivImage(demo::scene::draw());
    for (const demo::Step& step : demo::steps) {
        stage.passed = step.run(stage.scene).passed && stage.passed;
    }
    stage.mask = KivImage(stage.scene.mask.Mat()(part_view).clone());
    stage.part = kivconvert::region_of(stage.mask, "part");
    stage.lens_grey = KivImage(stage.scene.camera.Mat()(lens_view).clone());
    stage.lens_mask = KivImage(stage.scene.mask.Mat()(lens_view).clone());
    stage.lens = kivconvert::region_of(stage.lens_mask, "lens");
    return stage;
}

std::string counted(std::size_t count, const std::string& thing)
{
    return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

} // namespace gallery
