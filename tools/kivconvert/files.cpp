// SPDX-License-Identifier: MIT
#include "kivconvert/files.h"

#include "kivconvert/errors.h"
#include "kivconvert/interruptions.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <memory>
#include <optional>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace kivconvert
{
namespace
{

/// A new file next to the target, which is gone with this object unless it has been renamed.
class PartFile
{
public:
    explicit PartFile(const fs::path& target)
    {
        const auto lock = hold_interruptions();
        do {
            path_ = next_name(target);
            removal_.emplace([path = path_] { std::remove(path.c_str()); });
            file_ = std::fopen(path_.c_str(), "wbx");
        } while (file_ == nullptr && errno == EEXIST);
        if (file_ == nullptr) {
            removal_.reset();
        }
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile()
    {
        close();
        if (removal_) {
            std::remove(path_.c_str());
        }
    }

    bool write(std::string_view bytes)
    {
        return file_ != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size() && close();
    }

    /// Takes the target's place, and its permissions.
    bool replace(const fs::path& target)
    {
        std::error_code none;
        if (const fs::file_status old = fs::status(target, none); fs::exists(old)) {
            fs::permissions(path_, old.permissions(), none);
        }
        if (std::rename(path_.c_str(), target.c_str()) != 0) {
            return false;
        }
        removal_.reset();
        return true;
    }

private:
    /// Short, whatever the target's name, and hidden, so that it is no input if it should stay behind.
    static std::string next_name(const fs::path& target)
    {
        static std::atomic<unsigned> parts{0};
        return target.parent_path() / fmt::format(".kivconvert-{}-{}", getpid(), ++parts);
    }

    bool close()
    {
        std::FILE* const open = std::exchange(file_, nullptr);
        return open == nullptr || std::fclose(open) == 0;
    }

    std::string path_;
    std::FILE* file_ = nullptr;
    std::optional<UndoneByInterruption> removal_;
};

/// Where a new file takes the place of what is at `path`: behind a symbolic link, the link stays.
fs::path replaceable(const std::string& path)
{
    std::error_code none;
    if (!fs::exists(fs::symlink_status(path, none))) {
        return path;
    }
    if (!fs::is_regular_file(path, none)) {
        throw FileError(path, "is there already and not a regular file");
    }
    return fs::canonical(path);
}

std::string lower_case(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return text;
}

std::string reason()
{
    return std::strerror(errno);
}

} // namespace

std::string extension_of(const std::string& path)
{
    return lower_case(fs::path(path).extension().string());
}

bool is_named_like(const std::string& path, std::string_view ending)
{
    const std::string name = lower_case(fs::path(path).filename().string());
    return name.size() > ending.size() && name.ends_with(ending);
}

std::string read_file(const std::string& path)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file) {
        throw FileError(path, "cannot be opened: " + reason());
    }
    std::string bytes;
    std::array<char, 1 << 16> block;
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        bytes.append(block.data(), count);
    }
    if (std::ferror(file.get()) != 0) {
        throw FileError(path, "cannot be read: " + reason());
    }
    if (bytes.empty()) {
        throw FileError(path, "is empty");
    }
    return bytes;
}

std::string read_text(const std::string& path)
{
    constexpr std::string_view mark = "\xef\xbb\xbf";
    std::string text = read_file(path);
    return text.starts_with(mark) ? text.substr(mark.size()) : text;
}

void write_file(const std::string& path, std::string_view bytes)
{
    const fs::path target = replaceable(path);
    PartFile part(target);
    if (!part.write(bytes) || !part.replace(target)) {
        throw FileError(path, "cannot be written: " + reason());
    }
}

} // namespace kivconvert
