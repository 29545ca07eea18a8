// SPDX-License-Identifier: MIT
#include "kivconvert/part_file.h"

#include "kivconvert/paths.h"
#include "kivconvert/system.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>
#include <utility>

namespace kivconvert
{
namespace
{

std::string folder_of(const std::string& target)
{
    const std::string folder = text_of(path_of(target).parent_path());
    return folder.empty() ? "." : folder;
}

/// Calls `make` with short names of hidden files in the target's folder until there is no file of that name.
template <class Make>
std::string make_with_new_name(const std::string& target, Make make)
{
    static std::atomic<unsigned> parts{0};
    std::string name;
    int failure = 0;
    do {
        name = fmt::format("{}/.kivconvert-{}-{}", folder_of(target), getpid(), ++parts);
        failure = make(name) < 0 ? errno : 0;
    } while (failure == EEXIST);
    return failure == 0 ? name : std::string();
}

} // namespace

PartFile::PartFile(const std::string& target, PartName name) : target_(target)
{
    if (name == PartName::none_if_possible) {
        descriptor_ = system::create_nameless(folder_of(target));
    }
    if (descriptor_ < 0) {
        name_ =
            make_with_new_name(target, [this](const std::string& path) { return descriptor_ = system::create(path); });
        failure_ = descriptor_ < 0 ? errno : 0;
    }
}

PartFile::~PartFile()
{
    close();
    if (!name_.empty()) {
        std::remove(name_.c_str());
    }
}

bool PartFile::write(std::string_view bytes)
{
    if (descriptor_ < 0) {
        errno = failure_;
        return false;
    }
    while (!bytes.empty()) {
        const std::ptrdiff_t written = system::write_some(descriptor_, bytes);
        if (written < 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool PartFile::replace_target()
{
    const bool is_new = !system::take_permissions(descriptor_, target_);
    if (name_.empty()) {
        if (is_new && system::name(descriptor_, target_) == 0) {
            return close();
        }
        name_ =
            make_with_new_name(target_, [this](const std::string& path) { return system::name(descriptor_, path); });
    }
    if (name_.empty() || !close() || !system::replace(name_, target_)) {
        return false;
    }
    name_.clear();
    return true;
}

bool PartFile::close()
{
    const int open = std::exchange(descriptor_, -1);
    return open < 0 || ::close(open) == 0;
}

} // namespace kivconvert
