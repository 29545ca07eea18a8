// SPDX-License-Identifier: MIT
#include "kivconvert/files.h"

#include "kivconvert/errors.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <sstream>
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
    explicit PartFile(const fs::path& target) : path_(unused_name(target)), file_(std::fopen(path_.c_str(), "wbx")) {}
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile()
    {
        close();
        if (created_) {
            std::remove(path_.c_str());
        }
    }

    bool write(std::string_view bytes)
    {
        return file_ != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size() && close();
    }

    bool rename_to(const fs::path& target)
    {
        created_ = std::rename(path_.c_str(), target.c_str()) != 0;
        return !created_;
    }

private:
    /// No other process and no other thread of this one uses it.
    static std::string unused_name(const fs::path& target)
    {
        static std::atomic<unsigned> parts{0};
        return fmt::format("{}.part{}-{}", target.string(), getpid(), ++parts);
    }

    bool close()
    {
        std::FILE* const open = std::exchange(file_, nullptr);
        return open == nullptr || std::fclose(open) == 0;
    }

    std::string path_;
    std::FILE* file_;
    bool created_ = file_ != nullptr;
};

/// Where a new file takes the place of what is at `path`: behind a symbolic link, the link stays.
fs::path replaceable(const std::string& path)
{
    std::error_code none;
    if (!fs::exists(path, none)) {
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
    std::error_code none;
    if (fs::is_directory(path, none)) {
        throw FileError(path, "is a directory");
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw FileError(path, "cannot be opened: " + reason());
    }
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (file.bad()) {
        throw FileError(path, "cannot be read: " + reason());
    }
    if (bytes.tellp() <= 0) {
        throw FileError(path, "is empty");
    }
    return std::move(bytes).str();
}

void write_file(const std::string& path, std::string_view bytes)
{
    const fs::path target = replaceable(path);
    PartFile part(target);
    if (!part.write(bytes) || !part.rename_to(target)) {
        throw FileError(path, "cannot be written: " + reason());
    }
}

} // namespace kivconvert
