// SPDX-License-Identifier: MIT
// The reader of COCO data sets: rejects a file by an error that names it, or reads annotations, each of which is
// rejected or stays the same when it is rewritten as counts and as polygons.
#include "inputs.h"
#include "target.h"

#include "kivconvert/coco_data_set.h"
#include "kivconvert/coco_writer.h"
#include "kivconvert/errors.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

namespace
{

using kivconvert::CocoDataSet;
using kivconvert::CocoEntry;
using kivconvert::PlacedPixels;

std::string input_file(std::string_view bytes)
{
    static const std::string path =
        std::filesystem::temp_directory_path() / ("kivconvert-fuzz-" + std::to_string(getpid()) + ".json");
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

constexpr long long affordable_pixels = 1 << 20;

std::optional<PlacedPixels> pixels_of(const CocoDataSet& data_set, const CocoEntry& entry)
{
    try {
        return data_set.pixels_of(entry);
    } catch (const kivconvert::InputError& error) {
        EXPECT_EQ(std::string_view(error.what()).substr(0, data_set.path().size()), data_set.path());
        return std::nullopt;
    }
}

void check_entry(const CocoDataSet& data_set, const CocoEntry& entry)
{
    const std::optional<PlacedPixels> placed = pixels_of(data_set, entry);
    if (!placed || placed->frame.width * static_cast<long long>(placed->frame.height) > affordable_pixels) {
        return;
    }
    for (const auto form : {kivconvert::Segmentation::counts, kivconvert::Segmentation::polygons}) {
        if (form == kivconvert::Segmentation::polygons && data_set.images().count(entry.image) == 0) {
            continue; // polygons have no size of their own
        }
        const std::string text = "{\"segmentation\":" + kivconvert::segmentation_text(*placed, form) + "}";
        EXPECT_TRUE(data_set.pixels_of(entry, text).pixels == placed->pixels);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const fuzz::FuzzedBytes input{bytes, size};
    const std::string path = input_file(input.text());
    try {
        const CocoDataSet data_set(path);
        for (const CocoEntry& entry : data_set.entries()) {
            check_entry(data_set, entry);
        }
    } catch (const kivconvert::InputError& error) {
        EXPECT_EQ(std::string_view(error.what()).substr(0, path.size()), path);
    }
    return 0;
}
