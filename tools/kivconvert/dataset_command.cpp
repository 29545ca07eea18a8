// SPDX-License-Identifier: MIT
// COCO data sets made, taken apart and rewritten: dataset.
#include "kivconvert/coco_data_set.h"
#include "kivconvert/coco_writer.h"
#include "kivconvert/commands.h"
#include "kivconvert/connectivity_option.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/files.h"
#include "kivconvert/folders.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_options.h"
#include "kivconvert/inputs.h"
#include "kivconvert/label_images.h"
#include "kivconvert/page_stack.h"
#include "kivconvert/part_sets.h"
#include "kivconvert/paths.h"
#include "kivconvert/processors.h"
#include "kivconvert/region_files.h"
#include "kivconvert/run_files.h"
#include "kivconvert/standard_streams.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <fmt/format.h>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

struct DatasetOptions {
    Inputs inputs;
    std::string output;
    std::string ending = ".png";
    std::string by; ///< empty: not given
    std::string segmentation;
    bool measures = false;
    KivRuns::Connectivity connectivity = default_connectivity;
    ImagePart part;
};

Segmentation segmentation_named(const std::string& name)
{
    return name == "polygons" ? Segmentation::polygons : name == "counts" ? Segmentation::counts : Segmentation::as_is;
}

// Rewriting

/// Rewrites annotations some hundreds at a time, on all processors, and writes them in their order.
class Rewriter
{
public:
    Rewriter(const CocoDataSet& data_set, const CocoChange& change, const std::string& output)
        : data_set_(data_set), change_(change), out_(output)
    {
    }

    /// @param element an annotation
    void take(const CocoElement& element)
    {
        pieces_.push_back({element.text, CocoDataSet::entry_of(element, ++annotations_), true});
        count(element.text.size());
    }

    /// What stays as it is.
    void pass(std::string_view bytes)
    {
        if (pieces_.empty() || pieces_.back().is_annotation) {
            pieces_.push_back({});
        }
        pieces_.back().text += bytes;
        count(bytes.size());
    }

    void finish()
    {
        flush();
        out_.finish();
        complaints_.expect_none(annotations_, "annotations could not be rewritten");
    }

private:
    struct Piece {
        std::string text;
        CocoEntry entry = {};
        bool is_annotation = false;
    };

    void count(std::size_t bytes)
    {
        constexpr std::size_t most_pieces = 1024;
        constexpr std::size_t most_bytes = 1 << 22;
        bytes_ += bytes;
        if (pieces_.size() >= most_pieces || bytes_ >= most_bytes) {
            flush();
        }
    }

    void flush()
    {
        std::vector<Complaints> complaints(pieces_.size());
        on_all_processors(pieces_.size(), [&](std::size_t i) {
            if (Piece& piece = pieces_[i]; piece.is_annotation) {
                complaints[i].keep([&] {
                    piece.text = changed_annotation(piece.text, data_set_.pixels_of(piece.entry, piece.text), change_);
                });
            }
        });
        for (std::size_t i = 0; i < pieces_.size(); ++i) {
            complaints_.keep([&] { complaints[i].expect_none(); });
            out_.write(pieces_[i].text);
        }
        pieces_.clear();
        bytes_ = 0;
    }

    const CocoDataSet& data_set_;
    CocoChange change_;
    FileWriter out_;
    std::vector<Piece> pieces_;
    std::size_t bytes_ = 0; ///< of the pieces
    std::size_t annotations_ = 0;
    Complaints complaints_;
};

void rewrite(const DatasetOptions& options)
{
    const CocoDataSet data_set(options.inputs.texts.front());
    Rewriter rewriter(data_set, {segmentation_named(options.segmentation), options.measures}, options.output);
    const auto take = [&rewriter](const CocoElement& element) {
        if (element.section == CocoSection::annotations) {
            rewriter.take(element);
        } else {
            rewriter.pass(element.text);
        }
    };
    read_coco_stream(data_set.path(), take, [&rewriter](std::string_view bytes) { rewriter.pass(bytes); });
    rewriter.finish();
}

// Taking apart

/// The annotations of an image, and the name of its file.
struct ImageWork {
    std::string name;
    Frame frame;
    std::vector<const CocoEntry*> entries;
};

std::vector<ImageWork> work_of(const CocoDataSet& data_set)
{
    std::map<std::int64_t, ImageWork> work;
    for (const auto& [id, image] : data_set.images()) {
        work[id] = {image.name, image.frame, {}};
    }
    for (const CocoEntry& entry : data_set.entries()) {
        ImageWork& image = work[entry.image];
        image.entries.push_back(&entry);
        image.name = data_set.image_name(entry.image);
    }
    std::vector<ImageWork> all;
    for (auto& [id, image] : work) {
        all.push_back(std::move(image));
    }
    return all;
}

/// The pixels of annotations by their ids.
using Annotations = std::vector<std::pair<std::int64_t, KivRunSet>>;

/// Writes what is made of the annotations of an image, all of which are in one frame.
/// @param ending of the output
using ImageWriter = void (*)(const Output& output, const std::string& ending, const Frame& frame,
                             const Annotations& annotations);

void write_union(const Output& output, const std::string&, const Frame& frame, const Annotations& annotations)
{
    std::vector<KivRunSet> sets;
    for (const auto& [id, pixels] : annotations) {
        sets.push_back(pixels);
    }
    write_pixels(output, {KivRunSet::Union(sets), frame});
}

void write_labels(const Output& output, const std::string&, const Frame& frame, const Annotations& annotations)
{
    std::vector<KivRuns::LabelledSet> sets;
    for (const auto& [id, pixels] : annotations) {
        sets.push_back({static_cast<std::int32_t>(sets.size()) + 1, pixels});
    }
    write_label_image(output, label_image_of(sets, frame, output));
}

/// The id of each stands before the ending.
void write_each(const Output& output, const std::string& ending, const Frame& frame, const Annotations& annotations)
{
    const std::string name = output.path.substr(0, output.path.size() - ending.size());
    for (const auto& [id, pixels] : annotations) {
        write_pixels(fmt::format("{}-{}{}", name, id, ending), {pixels, frame});
    }
}

struct Apart {
    const char* by;
    ImageWriter write;
    void (*expect_output)(const std::string& path);
    bool makes_one; ///< output of an image
};

constexpr Apart ways_apart[] = {
    {"file", write_union, expect_region_output, true},
    {"label", write_labels, expect_label_image, true},
    {"annotation", write_each, expect_region_output, false},
};

const Apart& way_apart(const DatasetOptions& options)
{
    const auto* const way = std::find_if(std::begin(ways_apart), std::end(ways_apart), [&](const Apart& each) {
        return each.by == (options.by.empty() ? "file" : options.by);
    });
    if (way == std::end(ways_apart)) {
        throw InputError("--by", "is file, label or annotation where a data set is taken apart");
    }
    return *way;
}

/// Annotations that are malformed are left out.
void write_image_of(const CocoDataSet& data_set, const ImageWork& image, const Output& output,
                    const std::string& ending, ImageWriter write)
{
    Complaints complaints;
    Frame frame = image.frame;
    Annotations annotations;
    for (const CocoEntry* entry : image.entries) {
        complaints.keep([&] {
            PlacedPixels placed = data_set.pixels_of(*entry);
            frame = frame.is_known() ? frame : placed.frame;
            annotations.emplace_back(entry->id, std::move(placed.pixels));
        });
    }
    if (frame.is_known()) {
        write(output, ending, frame, annotations);
    }
    complaints.expect_none();
}

void take_apart(const DatasetOptions& options)
{
    const Apart& way = way_apart(options);
    const std::string ending = with_dot(options.ending);
    way.expect_output(fmt::format("{}/*{}", options.output, ending));
    const CocoDataSet data_set(options.inputs.texts.front());
    const std::vector<ImageWork> work = work_of(data_set);
    std::vector<InputFile> names;
    for (const ImageWork& image : work) {
        names.push_back({image.name, path_of(image.name).filename()});
    }
    const std::vector<std::string> outputs = outputs_in(options.output, names, ending);
    for_each_file(names, "written whole",
                  [&](std::size_t i) { write_image_of(data_set, work[i], outputs[i], ending, way.write); });
}

/// Pages are in the order of the images' ids.
void take_into_pages(const DatasetOptions& options)
{
    const Apart& way = way_apart(options);
    if (!way.makes_one) {
        throw InputError("--by", "is file or label where each image becomes a page");
    }
    const CocoDataSet data_set(options.inputs.texts.front());
    const std::vector<ImageWork> work = work_of(data_set);
    PageStack stack(options.output);
    stack.add(work.size(),
              [&](std::size_t i, const Output& page) { write_image_of(data_set, work[i], page, {}, way.write); });
    stack.finish();
}

// Making

/// What becomes of a file: an image, and annotations, whose ids depend on the files before.
struct MadeImage {
    Frame frame;
    std::vector<std::string> annotations;
};

/// The ids of categories by their names.
using CategoryIds = std::map<std::string, int>;

/// The folder within the input that the file is in.
std::string category_of(const InputFile& file)
{
    const std::string folder = file.name.parent_path().generic_string();
    return folder.empty() ? "object" : folder;
}

/// Numbered from 1, in the order of their names.
CategoryIds categories_of(const std::vector<InputFile>& files)
{
    CategoryIds categories;
    for (const InputFile& file : files) {
        categories[category_of(file)] = 0;
    }
    int id = 0;
    for (auto& category : categories) {
        category.second = ++id;
    }
    return categories;
}

MadeImage made_of(const std::string& input, const PartKind& kind, const DatasetOptions& options, int category)
{
    const Segmentation segmentation =
        options.segmentation.empty() ? Segmentation::counts : segmentation_named(options.segmentation);
    const Parts parts = kind.parts_of(input, {}, options.part, options.connectivity);
    MadeImage made{parts.frame, {}};
    for (const auto& [number, pixels] : parts.sets) {
        made.annotations.push_back(annotation_members({pixels, parts.frame}, segmentation, category));
    }
    return made;
}

std::string json_text(const std::string& name)
{
    return Json(name).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string image_text(std::size_t id, const std::string& name, const Frame& frame)
{
    return fmt::format("{{\"id\":{},\"file_name\":{},\"width\":{},\"height\":{}}}", id, json_text(name), frame.width,
                       frame.height);
}

/// Images and annotations are numbered from 1; files that failed are left out.
void write_data_set(const std::string& output, const std::vector<InputFile>& files, const std::vector<MadeImage>& made,
                    const CategoryIds& categories)
{
    FileWriter out(output);
    out.write("{\"images\":[");
    const char* separator = "\n";
    for (std::size_t i = 0; i < made.size(); ++i) {
        if (made[i].frame.is_known()) {
            out.write(separator + image_text(i + 1, files[i].name.generic_string(), made[i].frame));
            separator = ",\n";
        }
    }
    out.write("\n],\"annotations\":[");
    separator = "\n";
    std::size_t id = 0;
    for (std::size_t i = 0; i < made.size(); ++i) {
        for (const std::string& members : made[i].annotations) {
            out.write(fmt::format("{}{{\"id\":{},\"image_id\":{},{}", separator, ++id, i + 1, members));
            separator = ",\n";
        }
    }
    out.write("\n],\"categories\":[");
    separator = "\n";
    for (const auto& [name, category] : categories) {
        out.write(fmt::format("{}{{\"id\":{},\"name\":{}}}", separator, category, json_text(name)));
        separator = ",\n";
    }
    out.write("\n]}\n");
    out.finish();
}

void make(const DatasetOptions& options)
{
    const PartKind* const kind = find_part_kind(options.by.empty() ? "component" : options.by);
    if (kind == nullptr) {
        throw InputError("--by", "is component, label or file where a data set is made");
    }
    const std::vector<InputFile> files = files_of(options.inputs);
    const CategoryIds categories = categories_of(files);
    std::vector<MadeImage> made(files.size());
    std::exception_ptr failure;
    try {
        for_each_file(files, "taken", [&](std::size_t i) {
            report_under(files[i].path, [&] {
                made[i] = made_of(files[i].path, *kind, options, categories.at(category_of(files[i])));
            });
        });
    } catch (const FilesFailed&) {
        failure = std::current_exception();
    }
    write_data_set(options.output, files, made, categories);
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void run_dataset(const DatasetOptions& options)
{
    const bool to_file = extension_of(options.output) == ".json";
    const bool from_data_set = options.inputs.is_single() && is_data_set(options.inputs.texts.front());
    if (!to_file && !from_data_set) {
        throw FileError(options.output, "is not named like a data set; those end in .json");
    }
    if (!to_file && can_have_pages(options.output)) {
        take_into_pages(options);
    } else if (!to_file) {
        take_apart(options);
    } else if (!from_data_set) {
        make(options);
    } else if (options.segmentation.empty() && !options.measures) {
        throw InputError("--segmentation", "or --measures says what to change in a data set");
    } else {
        rewrite(options);
    }
}

} // namespace

void add_dataset_command(CLI::App& app)
{
    const auto options = std::make_shared<DatasetOptions>();
    CLI::App* const command =
        app.add_subcommand("dataset", "Makes a COCO data set of files, takes one apart, or rewrites one");
    command->footer(example("dataset instances.json -o masks"));
    add_inputs(*command, options->inputs, fmt::format("COCO data set, .json; or {}", any_content));
    command
        ->add_option("-o,--output", options->output,
                     "COCO data set, .json; or a folder for masks, or a .tif with a page of each")
        ->required();
    command->add_option("--to", options->ending, "ending of the files in the folder, .png by default")
        ->type_name("ENDING");
    command
        ->add_option("--by", options->by,
                     "what is an annotation: each component, label or file; or what is a file: the image with all of "
                     "its annotations as one mask, as labels, or each annotation")
        ->type_name("component|label|file|annotation")
        ->check(CLI::IsMember({"component", "label", "file", "annotation"}).description(""));
    command->add_option("--segmentation", options->segmentation, "how pixels are written in a data set")
        ->type_name("counts|polygons")
        ->check(CLI::IsMember({"counts", "polygons"}).description(""));
    command->add_flag("--measures", options->measures, "make areas and boxes those of the pixels");
    add_connectivity_option(*command, options->connectivity);
    add_image_options(*command, options->part);
    command->callback([options] { report_under(options->inputs.texts.front(), [&] { run_dataset(*options); }); });
}

} // namespace kivconvert
