// SPDX-License-Identifier: MIT
// COCO data sets: made, measured, chosen from, taken apart, rewritten, and damaged.
#include "tools/command_line.h"

#include <KivRLC/KivRunCoco.h>

#include <fmt/format.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <random>

namespace
{

using tools_tests::run_file;

//   01234     01234
// 0 .###.   0 .....
// 1 .#.#.   1 ....#
// 2 .###.   2 ....#
const std::string two_annotations = R"({
 "info": {"annotations": [{"id": 99}], "year": 1e3},
 "annotations": [
  {"id": 12, "image_id": 3, "category_id": 1, "score" : 0.50, "segmentation": [[1,0, 4,0, 4,3, 1,3]],
   "area": 9, "bbox": [1.0, 0.0, 3.0, 3.0], "iscrowd": 0},
  {"segmentation": {"counts": [13, 2], "size": [3, 5]}, "id": 13, "image_id": 3, "category_id": 2, "iscrowd": 1}
 ],
 "images": [{"id": 3, "file_name": "a/three.png", "width": 5, "height": 3}, {"id": 4, "width": 2, "height": 2}],
 "categories": [{"id": 1, "name": "ring"}, {"id": 2, "name": "bar"}]
})";

class CocoDataSets : public tools_tests::CommandLine
{
protected:
    void SetUp() override
    {
        CommandLine::SetUp();
        put("set.json", two_annotations);
    }

    void expect_chosen(const std::string& choice, const std::string& runs) const
    {
        run(0, "region set.json -o out.csv " + choice);
        EXPECT_EQ(get("out.csv"), run_file(5, 3, runs)) << choice;
    }
};

const std::string block = "0,1,3\n1,1,3\n2,1,3\n";
const std::string bar = "1,4,4\n2,4,4\n";
const std::string both = "0,1,3\n1,1,4\n2,1,4\n";

TEST_F(CocoDataSets, AreDescribed)
{
    EXPECT_EQ(run(0, "info set.json"), "kind       COCO data set\n"
                                       "images     2\n"
                                       "categories 2\n"
                                       "annotations 2\n"
                                       "polygons   1 as polygons\n"
                                       "packed     0 as packed counts\n"
                                       "plain      1 as plain counts\n"
                                       "none       0 without pixels\n");
    put("results.json", R"([{"image_id": 3, "category_id": 1, "segmentation": {"size": [2,3], "counts": "2111"}}])");
    EXPECT_NE(run(0, "info results.json").find("packed     1 as packed counts\n"), std::string::npos);
    run(0, "region results.json --annotation 1 -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(3, 2, "0,1,2\n1,2,2\n")) << "without ids, annotations are counted from 1";
}

TEST_F(CocoDataSets, HaveAnnotationsByIdImageAndCategory)
{
    expect_chosen("--annotation 12", block);
    expect_chosen("--annotation 13", bar);
    expect_chosen("--of-image 3", both);
    expect_chosen("--of-image a/three.png", both);
    expect_chosen("--category ring", block);
    expect_chosen("--category 2 --of-image 3", bar);
    put("other.csv", run_file(5, 3, "0,1,1\n"));
    run(0, "difference set.json other.csv --annotation 12 -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(5, 3, "0,2,3\n1,1,3\n2,1,3\n"));
    EXPECT_EQ(refuse(2, "region set.json --annotation 14 -o none.csv"), "set.json: has no such annotation");
    EXPECT_EQ(refuse(2, "region set.json -o none.csv"),
              "set.json: is a COCO data set; --annotation, --of-image or --category says what to take of it");
    EXPECT_EQ(refuse(2, "region other.csv --category ring -o none.csv"), "--category: is for COCO data sets");
    EXPECT_EQ(refuse(2, "union other.csv other.csv --annotation 1 -o none.csv"), "--annotation: is for COCO data sets");
}

TEST_F(CocoDataSets, HaveAMeasuredRowPerAnnotation)
{
    const std::string table = run(0, "measure set.json");
    EXPECT_EQ(table.find("file,annotation,image,category,area,left,"), 0U);
    EXPECT_NE(table.find("\nset.json,12,a/three.png,ring,9,1,0,3,2,2.0,1.0,"), std::string::npos);
    EXPECT_NE(table.find("\nset.json,13,a/three.png,bar,2,4,1,4,2,4.0,1.5,"), std::string::npos);
    EXPECT_EQ(run(0, "measure set.json --category bar").find("\nset.json,12"), std::string::npos);
    put("other.csv", run_file(5, 3, "0,1,1\n"));
    EXPECT_NE(run(0, "measure other.csv set.json").find("\nset.json,,12,a/three.png,ring,9,1,"), std::string::npos)
        << "other.csv has components";
    refuse(2, "measure other.csv --by annotation");
}

TEST_F(CocoDataSets, AreRewrittenWithEverythingElseAsItWas)
{
    run(0, "dataset set.json -o counts.json --segmentation counts");
    std::string expected = two_annotations;
    const auto replace = [&expected](const std::string& from, const std::string& to) {
        expected.replace(expected.find(from), from.size(), to);
    };
    replace("[[1,0, 4,0, 4,3, 1,3]]", R"({"size":[3,5],"counts":"393"})");
    replace(R"({"counts": [13, 2], "size": [3, 5]})", R"({"size":[3,5],"counts":"=2"})");
    EXPECT_EQ(get("counts.json"), expected);

    run(0, "dataset counts.json -o polygons.json --segmentation polygons --measures");
    replace(R"({"size":[3,5],"counts":"393"})", "[[1,0,4,0,4,3,1,3]]");
    replace("[1.0, 0.0, 3.0, 3.0]", "[1,0,3,3]");
    replace(R"("iscrowd": 1})", R"("iscrowd": 1,"area":2,"bbox":[4,1,1,2]})");
    EXPECT_EQ(get("polygons.json"), expected) << "crowds stay counts";
    refuse(2, "dataset set.json -o none.json");
}

TEST_F(CocoDataSets, KeepHolesInPolygons)
{
    // ......
    // .###..   two holes, one of which touches the other by a corner
    // .#.##.
    // .##.#.
    // .####.
    put("holes.csv", run_file(6, 5, "1,1,3\n2,1,1\n2,3,4\n3,1,2\n3,4,4\n4,1,4\n"));
    run(0, "dataset holes.csv -o holes.json --by file --segmentation polygons");
    run(0, "region holes.json --annotation 1 -o back.csv");
    expect_same("holes.csv", "back.csv");
    const nlohmann::json annotation = nlohmann::json::parse(get("holes.json"))["annotations"][0];
    EXPECT_EQ(annotation["segmentation"].size(), 1U);
    EXPECT_EQ(annotation["area"], 13);
    EXPECT_EQ(annotation["bbox"], (nlohmann::json{1, 1, 4, 4}));
}

TEST_F(CocoDataSets, AreMadeOfFilesAndTakenApart)
{
    std::filesystem::create_directories("in/within");
    put("in/a.csv", run_file(5, 3, "0,0,1\n2,3,4\n"));
    put("in/within/b.pgm", "P2\n3 1\n255\n9 0 4\n");
    put("in/void.csv", run_file(2, 2, ""));
    run(0, "dataset in --recursive -o parts.json");
    const nlohmann::json made = nlohmann::json::parse(get("parts.json"));
    EXPECT_EQ(made["images"].size(), 3U);
    EXPECT_EQ(made["images"][2]["file_name"], "within/b.pgm");
    EXPECT_EQ(made["annotations"].size(), 4U);
    EXPECT_EQ(made["annotations"][3]["id"], 4);
    EXPECT_EQ(made["annotations"][3]["image_id"], 3);
    EXPECT_EQ(made["categories"],
              nlohmann::json::parse(R"([{"id": 1, "name": "object"}, {"id": 2, "name": "within"}])"))
        << "folders are categories";
    EXPECT_EQ(made["annotations"][1]["category_id"], 1);
    EXPECT_EQ(made["annotations"][2]["category_id"], 2);
    run(0, "region parts.json --category within --of-image 3 -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(3, 1, "0,0,0\n0,2,2\n"));

    run(0, "dataset parts.json -o masks --to csv");
    expect_same("in/a.csv", "masks/a.csv");
    expect_same("in/void.csv", "masks/void.csv");
    run(0, "dataset parts.json -o labels --by label");
    run(0, "matrix labels/a.png -o labels.csv");
    EXPECT_EQ(get("labels.csv"), "1,1,0,0,0\n0,0,0,0,0\n0,0,0,2,2\n");
    run(0, "dataset parts.json -o each --by annotation --to csv");
    EXPECT_EQ(get("each/a-2.csv"), run_file(5, 3, "2,3,4\n"));
    run(0, "dataset in/within -o labels.json --by label");
    run(0, "region labels.json --annotation 1 -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(3, 1, "0,2,2\n")) << "the smaller label is first";
    refuse(2, "dataset parts.json -o never --by component");
    refuse(2, "dataset in -o never");
    refuse(2, "dataset in -o never.json --by annotation");
}

TEST_F(CocoDataSets, HaveMalformedAnnotationsNamedAndTheRestDone)
{
    put("bad.json", R"({"images": [{"id": 1, "width": 3, "height": 2}],
"annotations": [
{"id": 1, "image_id": 1, "segmentation": [[0,0,1,0,1]]},
{"id": 2, "image_id": 1, "segmentation": {"size": [2,3], "counts": "2111"}},
{"id": 3, "image_id": 1, "segmentation": {"size": [3,2], "counts": [6]}},
{"id": 4, "image_id": 1, "segmentation": {"size": [2,3], "counts": "2"}},
{"id": 5, "image_id": 2, "segmentation": [[0,0,1,0,1,1]]},
{"id": 6, "image_id": 1}, 7, [8],
{"id": 9, "image_id": 1, "segmentation": [[0,0,1,0,1,"1"]]}]})");
    const std::string complaints =
        "kivconvert: bad.json:3: annotation 1: a polygon is no array of an even number of at least 6 numbers from "
        "-1048576 to 1048576\n"
        "kivconvert: bad.json:5: annotation 3: \"size\" is 3 x 2, but that of the image 2 x 3\n"
        "kivconvert: bad.json:6: annotation 4: \"counts\" has 2 pixels, but the frame has 6\n"
        "kivconvert: bad.json:7: annotation 5: has polygons, but its image and so its size is not in the file\n"
        "kivconvert: bad.json:8: annotation 6: \"segmentation\" is neither polygons nor counts\n"
        "kivconvert: bad.json:8: annotation 7: is no JSON object\n"
        "kivconvert: bad.json:8: annotation 8: is no JSON object\n"
        "kivconvert: bad.json:9: annotation 9: a polygon is no array of an even number of at least 6 numbers from "
        "-1048576 to 1048576\n"
        "kivconvert: 8 of 9 annotations could not be ";
    kivconvert::Outcome outcome = kivconvert::run({"measure", "bad.json"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, complaints + "measured\n");
    EXPECT_NE(outcome.out.find("\nbad.json,2,1,,3,1,0,2,1,"), std::string::npos);
    outcome = kivconvert::run({"dataset", "bad.json", "-o", "out.json", "--segmentation", "polygons"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, complaints + "rewritten\n");
    std::string expected = get("bad.json");
    const std::string counts = R"({"size": [2,3], "counts": "2111"})";
    expected.replace(expected.find(counts), counts.size(), "[[1,0,3,0,3,2,2,2,2,1,1,1]]");
    EXPECT_EQ(get("out.json"), expected);
}

TEST_F(CocoDataSets, ThatAreNoJsonAreRefused)
{
    put("cut.json", two_annotations.substr(0, 400));
    EXPECT_EQ(refuse(2, "measure cut.json").find("cut.json:"), 0U);
    EXPECT_EQ(refuse(2, "dataset cut.json -o none.json --segmentation counts").find("cut.json:"), 0U);
    put("image.json", "{\"images\":\n[{\"id\":1,\"width\":-1,\"height\":2}],\"annotations\":[]}");
    EXPECT_EQ(refuse(2, "measure image.json"), "image.json:2: image 1: \"width\" is not an int of at least 0");
    put("unnamed.json", "{\"images\":[{\"width\":1,\"height\":2}],\"annotations\":[]}");
    EXPECT_EQ(refuse(2, "measure unnamed.json"), "unnamed.json:1: image: has no \"id\" that is a whole number");
}

/// A rectangle with one cut out of it, and another one beside it, in a frame.
KivRunSet random_object(std::mt19937& random, int width, int height)
{
    const auto box = [&] {
        const int left = static_cast<int>(random() % static_cast<unsigned>(width));
        const int top = static_cast<int>(random() % static_cast<unsigned>(height));
        return KivRunBox{top, std::min<int>(top + static_cast<int>(random() % 40), height - 1), left,
                         std::min<int>(left + static_cast<int>(random() % 40), width - 1)};
    };
    const auto filled = [](const KivRunBox& b) { return KivRunSet().Complement(b); };
    const KivRunBox a = box();
    const KivRunBox hole = {a.rowBegin + 1, a.rowEnd - 2, a.colBegin + 2, a.colEnd - 1};
    return (filled(a) - filled(hole)) ^ filled(box());
}

TEST_F(CocoDataSets, OfManyAnnotationsComeBackAsTheyWere)
{
    const int images = std::getenv("KIV_LONG_TESTS") != nullptr ? 2000 : 200;
    const int annotations = 25 * images;
    std::mt19937 random(4711);
    std::string text = "{\"images\": [\n";
    std::vector<std::pair<int, int>> sizes;
    for (int i = 0; i < images; ++i) {
        sizes.emplace_back(100 + static_cast<int>(random() % 540), 100 + static_cast<int>(random() % 380));
        text += fmt::format("{}{{\"id\": {}, \"width\": {}, \"height\": {}}}\n", i == 0 ? "" : ",", 7 * i,
                            sizes.back().first, sizes.back().second);
    }
    text += "], \"annotations\": [\n";
    for (int i = 0; i < annotations; ++i) {
        const int image = static_cast<int>(random() % static_cast<unsigned>(images));
        const auto [width, height] = sizes[static_cast<std::size_t>(image)];
        const nlohmann::json counts = KivRuns::ToCocoText(random_object(random, width, height), width, height);
        text +=
            fmt::format("{}{{\"id\": {}, \"image_id\": {}, \"segmentation\": {{\"size\":[{},{}],\"counts\":{}}}}}\n",
                        i == 0 ? "" : ",", i, 7 * image, height, width, counts.dump());
    }
    put("many.json", text + "]}\n");
    run(0, "dataset many.json -o polygons.json --segmentation polygons");
    EXPECT_NE(run(0, "info polygons.json").find(fmt::format("polygons   {} as polygons\n", annotations)),
              std::string::npos);
    run(0, "dataset polygons.json -o back.json --segmentation counts");
    expect_same("many.json", "back.json");
    run(0, "dataset many.json -o masks");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator("masks"), std::filesystem::directory_iterator()),
              images);
}

} // namespace
