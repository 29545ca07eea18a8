// SPDX-License-Identifier: MIT
// Many images as the pages of one TIFF file.
#include "kivconvert/image_encoder.h"
#include "kivconvert/image_files.h"
#include "tools/command_line.h"

#include <fmt/format.h>

#include <tiffio.h>

namespace
{

using tools_tests::run_file;

class PageStacks : public tools_tests::CommandLine
{
protected:
    void SetUp() override
    {
        CommandLine::SetUp();
        std::filesystem::create_directory("in");
        put("in/a.csv", run_file(5, 3, "0,0,1\n2,3,4\n"));
        put("in/b.pgm", "P2\n3 1\n255\n9 0 4\n");
        put("in/c.csv", run_file(2, 2, "1,0,0\n"));
    }

    /// The values of a page, as `matrix` lists them.
    std::string page(const std::string& stack, int number) const
    {
        run(0, fmt::format("matrix {} --page {} -o page.csv", stack, number));
        return get("page.csv");
    }
};

const std::string of_a = "255,255,0,0,0\n0,0,0,0,0\n0,0,0,255,255\n";

TEST_F(PageStacks, HaveAPageOfEachInput)
{
    run(0, "image in -o stack.tif --jobs 2");
    EXPECT_EQ(page("stack.tif", 1), of_a);
    EXPECT_EQ(page("stack.tif", 2), "255,0,255\n");
    EXPECT_EQ(page("stack.tif", 3), "0,0\n255,0\n");
    refuse(2, "info stack.tif --page 4");
    std::filesystem::create_directory("folder.tif");
    run(0, "image in -o folder.tif");
    EXPECT_TRUE(std::filesystem::exists("folder.tif/b.png"));
    run(0, "fill in/c.csv in/a.csv -o filled.tiff");
    EXPECT_EQ(page("filled.tiff", 2), of_a) << "in the order of the inputs";
}

TEST_F(PageStacks, HaveAPageOfEachPage)
{
    run(0, "image in -o stack.tif");
    run(0, "components stack.tif in/b.pgm --page all -o labels.tif");
    EXPECT_EQ(page("labels.tif", 1), "1,1,0,0,0\n0,0,0,0,0\n0,0,0,2,2\n");
    EXPECT_EQ(page("labels.tif", 3), "0,0\n1,0\n");
    EXPECT_EQ(page("labels.tif", 4), "1,0,2\n");
    const kivconvert::ImagePart first{.page = 1};
    EXPECT_EQ(kivconvert::read_image("labels.tif", first).Mat().depth(), CV_64F) << "labels have 32 bits in all pages";
    run(0, "components in/b.pgm --page all -o one.tif");
    EXPECT_EQ(page("one.tif", 1), "1,0,2\n");
}

TEST_F(PageStacks, AreMadeOfTheImagesOfADataSet)
{
    run(0, "dataset in -o set.json");
    run(0, "dataset set.json --by label -o labels.tif");
    EXPECT_EQ(page("labels.tif", 1), "1,1,0,0,0\n0,0,0,0,0\n0,0,0,2,2\n");
    EXPECT_EQ(page("labels.tif", 3), "0,0\n1,0\n");
    run(0, "dataset set.json -o masks.tif");
    EXPECT_EQ(page("masks.tif", 1), of_a);
    EXPECT_EQ(refuse(2, "dataset set.json --by annotation -o none.tif"),
              "--by: is file or label where each image becomes a page");
    put("empty.json", R"({"images":[],"annotations":[]})");
    EXPECT_EQ(refuse(2, "dataset empty.json -o none.tif"), "none.tif: would have no page");
    put("flat.json", R"({"images":[{"id":1,"width":0,"height":0}],"annotations":[]})");
    const kivconvert::Outcome outcome = kivconvert::run({"dataset", "flat.json", "-o", "none.tif"});
    EXPECT_EQ(outcome.err, "kivconvert: none.tif: would have a page 1 without a size\n"
                           "kivconvert: 1 of 1 pages could not be made\n");
}

TEST_F(PageStacks, AreAsTheyWereIfAnInputFails)
{
    put("stack.tif", "old");
    put("in/d.png", "no image");
    put("in/e.csv", run_file(0, 5, ""));
    const kivconvert::Outcome outcome = kivconvert::run({"image", "in", "-o", "stack.tif"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err.find("kivconvert: in/d.png: "), 0U);
    EXPECT_TRUE(outcome.err.ends_with("\nkivconvert: 2 of 5 pages could not be made\n"));
    EXPECT_EQ(get("stack.tif"), "old");
    EXPECT_EQ(refuse(2, "image in -o new.tif --resume"),
              "--resume: is for inputs with one output each, not for pages of one");
    refuse(2, "image in -o new.tif --to tif");
}

TEST_F(PageStacks, TakeNoMoreMemoryThanIsAllowed)
{
    cv::Mat noise(1024, 1024, CV_8U);
    cv::randu(noise, 0, 256);
    kivconvert::write_image(path("noise.pgm"), KivImage(noise));
    const kivconvert::Outcome outcome = kivconvert::run(
        {"matrix", "noise.pgm", "noise.pgm", "noise.pgm", "noise.pgm", "-o", "stack.tif", "--max-memory", "4"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find(" bytes in pages would take 5 MiB; --max-memory allows 4\n"), std::string::npos)
        << outcome.err;
    EXPECT_FALSE(std::filesystem::exists("stack.tif"));
}

TEST_F(PageStacks, MayHaveThousandsOfPages)
{
    constexpr int pages = 5000;
    kivconvert::TiffPages stack;
    for (int i = 0; i < pages; ++i) {
        stack.add(cv::Mat(1, 2, CV_16U, cv::Scalar(i)));
    }
    put("stack.tif", stack.take());
    const kivconvert::ImageFile file("stack.tif");
    EXPECT_EQ(file.pages(), pages);
    for (int i = 0; i < pages; ++i) {
        ASSERT_EQ(file.read({.page = i + 1}).Mat().at<std::uint16_t>(0, 1), i);
    }
}

TEST_F(PageStacks, AreReadInAnyOrderOfBytesAndWithLongOffsets)
{
    for (const std::string mode : {"wl", "wb", "wl8", "wb8"}) {
        TIFF* const tiff = TIFFOpen("stack.tif", mode.c_str());
        for (std::uint8_t value = 1; value <= 3; ++value) {
            TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, 1U);
            TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, 1U);
            TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
            TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
            TIFFWriteScanline(tiff, &value, 0);
            TIFFWriteDirectory(tiff);
        }
        TIFFClose(tiff);
        for (int number = 3; number >= 1; --number) {
            EXPECT_EQ(page("stack.tif", number), fmt::format("{}\n", number)) << mode;
        }
    }
}

} // namespace
