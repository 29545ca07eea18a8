// SPDX-License-Identifier: MIT
#include "kivconvert/operands.h"

#include "kivconvert/errors.h"

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

} // namespace

Content read_operand(const std::string& text, const Frame& frame, const ImagePart& part)
{
    Content content = read_content(text, part);
    if (!is_image(content)) {
        expect_no_part(part);
    }
    expect_use_for(frame, is_placeable(content));
    place(content, frame);
    expect_placed(content, text);
    return content;
}

Operands read_operands(const std::string& a, const std::string& b, const Frame& frame, const ImagePart& part)
{
    Operands operands{read_content(a, part), read_content(b, part)};
    if (!is_image(operands.a) && !is_image(operands.b)) {
        expect_no_part(part);
    }
    expect_use_for(frame, is_placeable(operands.a) || is_placeable(operands.b));
    place(operands.a, frame);
    place(operands.b, frame);
    if (!frame_of(operands.a).is_known()) {
        place(operands.a, frame_of(operands.b));
    }
    if (!frame_of(operands.b).is_known()) {
        place(operands.b, frame_of(operands.a));
    }
    expect_placed(operands.a, a);
    expect_placed(operands.b, b);
    return operands;
}

} // namespace kivconvert
