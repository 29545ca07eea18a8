// SPDX-License-Identifier: MIT
// What an output that is filled element by element may hold when its function has failed.
#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace faults
{

inline std::vector<std::string> parts_of(const std::string& output)
{
    std::vector<std::string> parts;
    std::istringstream text(output + ";");
    for (std::string part; std::getline(text, part, ';');) {
        parts.push_back(part + ' ');
    }
    return parts;
}

/// Whether each part of the output is as it was, or the first elements of what it would have become.
inline bool is_partly_written(const std::string& now, const std::string& before, const std::string& complete)
{
    const std::vector<std::string> now_parts = parts_of(now);
    const std::vector<std::string> before_parts = parts_of(before);
    const std::vector<std::string> complete_parts = parts_of(complete);
    bool all = now_parts.size() == complete_parts.size();
    for (std::size_t i = 0; all && i < now_parts.size(); ++i) {
        const std::string& part = now_parts[i];
        all = part == before_parts[i] || complete_parts[i].substr(0, part.size()) == part;
    }
    return all;
}

} // namespace faults
