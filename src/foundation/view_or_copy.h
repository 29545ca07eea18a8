// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <utility>
#include <vector>

namespace kiv
{

/// Elements to read: a view of those that another object keeps, which must outlive the view, or a copy.
template <class Element>
class ViewOrCopy
{
public:
    using View = std::span<const Element>;

    ViewOrCopy(std::vector<Element> copy) : copy_(std::move(copy)), view_(copy_) {}
    ViewOrCopy(View kept_elsewhere) : view_(kept_elsewhere) {}
    ViewOrCopy(const ViewOrCopy&) = delete;
    ViewOrCopy& operator=(const ViewOrCopy&) = delete;

    View view() const& { return view_; }
    View view() const&& = delete; // a view of the copy would dangle
    operator View() const& { return view_; }
    operator View() const&& = delete;

private:
    std::vector<Element> copy_;
    View view_;
};

} // namespace kiv
