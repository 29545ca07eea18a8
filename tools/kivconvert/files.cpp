// SPDX-License-Identifier: MIT
#include "kivconvert/files.h"

#include "kivconvert/errors.h"
#include "kivconvert/part_file.h"
#include "kivconvert/standard_streams.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace fs = std::filesystem;

namespace kivconvert
{
namespace
{

/// Also for those who may write to any file: without write permission for anybody, it is meant to stay as it is.
bool is_read_only(const std::string& path)
{
    constexpr auto writable = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code none;
    return (fs::status(path, none).permissions() & writable) == fs::perms::none || access(path.c_str(), W_OK) != 0;
}

/// The file that is replaced when `path` is written: a symbolic link stays, and its target is replaced.
fs::path replaceable(const std::string& path)
{
    std::error_code none;
    if (!fs::exists(fs::symlink_status(path, none))) {
        return path;
    }
    if (!fs::is_regular_file(path, none)) {
        throw FileError(path, "is there already and not a regular file");
    }
    if (is_read_only(path)) {
        throw FileError(path, "is read-only");
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

using InputStream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

InputStream open_input(const std::string& path)
{
    if (is_standard_input(path)) {
        return {stdin, [](std::FILE*) { return 0; }};
    }
    return {std::fopen(path.c_str(), "rb"), std::fclose};
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
    const InputStream file = open_input(path);
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
    FileWriter file(path);
    file.write(bytes);
    file.finish();
}

FileWriter::FileWriter(const std::string& path) : path_(path)
{
    if (!is_standard_output(path)) {
        part_ = std::make_unique<PartFile>(replaceable(path));
    }
}

void FileWriter::write(std::string_view bytes)
{
    constexpr std::size_t block = 1 << 16;
    if (buffer_.size() + bytes.size() > block) {
        flush();
    }
    if (bytes.size() > block) {
        write_now(bytes);
    } else {
        buffer_ += bytes;
    }
}

void FileWriter::finish()
{
    flush();
    if (part_ ? !part_->replace_target() : std::fflush(stdout) != 0) {
        throw FileError(path_, "cannot be written: " + reason());
    }
}

void FileWriter::flush()
{
    write_now(buffer_);
    buffer_.clear();
}

void FileWriter::write_now(std::string_view bytes)
{
    const bool done = part_ ? part_->write(bytes) : std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
    if (!done) {
        throw FileError(path_, "cannot be written: " + reason());
    }
}

} // namespace kivconvert
