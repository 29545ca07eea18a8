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
        throw InputError("--width", "is for shapes and contours; everything else has a frame of its own");
    }
}

} // namespace

Content read_operand(const std::string& text, const Frame& frame)
{
    Content content = read_content(text);
    expect_use_for(frame, is_placeable(content));
    place(content, frame);
    expect_placed(content, text);
    return content;
}

Operands read_operands(const std::string& a, const std::string& b, const Frame& frame)
{
    Operands operands{read_content(a), read_content(b)};
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
