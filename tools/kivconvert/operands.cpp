// SPDX-License-Identifier: MIT
#include "kivconvert/operands.h"

#include "kivconvert/errors.h"

#include <algorithm>
#include <utility>

namespace kivconvert
{
namespace
{

void expect_use_for(const Frame& frame, bool is_used)
{
    if (frame.is_known() && !is_used) {
        throw InputError("--width", "is for shapes, contours and runs without a frame; everything else has its own");
    }
}

bool is_image(const Content& content)
{
    return std::holds_alternative<KivImage>(content);
}

/// Unknown if none of them is in a frame.
Frame first_frame_of(const std::vector<Content>& contents)
{
    const auto placed = std::find_if(contents.begin(), contents.end(),
                                     [](const Content& content) { return frame_of(content).is_known(); });
    return placed == contents.end() ? Frame{} : frame_of(*placed);
}

} // namespace

Content read_operand(const std::string& text, const Frame& frame, const ImagePart& part)
{
    Content content = read_content(text, part);
    expect_use_for_part(text, content, part);
    expect_use_for(frame, is_placeable(content));
    place(content, frame);
    require_frame(content, text);
    return content;
}

std::vector<Content> read_operands(const std::vector<std::string>& texts, const Frame& frame, const ImagePart& part,
                                   const Reduction& reduce)
{
    std::vector<Content> operands;
    bool has_image = false;
    for (const std::string& text : texts) {
        Content content = read_content(text, part);
        has_image = has_image || is_image(content);
        operands.push_back(reduce ? reduce(std::move(content), text) : std::move(content));
    }
    if (!has_image) {
        expect_no_image_part(part);
    }
    if (part.choice.is_made() && std::none_of(texts.begin(), texts.end(), is_data_set)) {
        expect_no_choice(part.choice);
    }
    expect_use_for(frame, std::any_of(operands.begin(), operands.end(), is_placeable));
    for (Content& operand : operands) {
        place(operand, frame);
    }
    const Frame first = first_frame_of(operands);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!frame_of(operands[i]).is_known()) {
            place(operands[i], first);
        }
        require_frame(operands[i], texts[i]);
    }
    return operands;
}

} // namespace kivconvert
