// SPDX-License-Identifier: MIT
#include "kivconvert/part_file.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kivconvert
{
namespace
{

constexpr int mode_before_umask = 0666;
constexpr const char* own_descriptors = "/proc/self/fd";

std::string folder_of(const std::string& target)
{
    const std::string folder = std::filesystem::path(target).parent_path();
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
    if (name == PartName::none_if_possible && access(own_descriptors, X_OK) == 0) {
        descriptor_ = open(folder_of(target).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode_before_umask);
    }
    if (descriptor_ < 0) {
        name_ = make_with_new_name(target, [this](const std::string& path) {
            return descriptor_ = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode_before_umask);
        });
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
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool PartFile::replace_target()
{
    struct stat old = {};
    const bool is_new = stat(target_.c_str(), &old) != 0;
    if (!is_new) {
        fchmod(descriptor_, old.st_mode);
    }
    if (name_.empty()) {
        if (is_new && link_to(target_) == 0) {
            return close();
        }
        name_ = make_with_new_name(target_, [this](const std::string& path) { return link_to(path); });
    }
    if (name_.empty() || !close() || std::rename(name_.c_str(), target_.c_str()) != 0) {
        return false;
    }
    name_.clear();
    return true;
}

int PartFile::link_to(const std::string& path) const
{
    const std::string link = fmt::format("{}/{}", own_descriptors, descriptor_);
    return linkat(AT_FDCWD, link.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
}

bool PartFile::close()
{
    const int open = std::exchange(descriptor_, -1);
    return open < 0 || ::close(open) == 0;
}

} // namespace kivconvert
