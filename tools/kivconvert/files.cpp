// SPDX-License-Identifier: MIT
#include "kivconvert/files.h"

#include "kivconvert/errors.h"
#include "kivconvert/part_file.h"
#include "kivconvert/paths.h"
#include "kivconvert/standard_streams.h"
#include "kivconvert/system.h"

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
    return (fs::status(path_of(path), none).permissions() & writable) == fs::perms::none ||
           access(path.c_str(), W_OK) != 0;
}

/// The file that is replaced when `path` is written: a symbolic link stays, and its target is replaced.
std::string replaceable(const std::string& path)
{
    std::error_code none;
    if (!fs::exists(fs::symlink_status(path_of(path), none))) {
        return path;
    }
    if (!fs::is_regular_file(path_of(path), none)) {
        throw FileError(path, "is there already and not a regular file");
    }
    if (is_read_only(path)) {
        throw FileError(path, "is read-only");
    }
    return text_of(fs::canonical(path_of(path)));
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

[[noreturn]] void fail_reading(const std::string& path)
{
    throw FileError(path, "cannot be read: " + reason());
}

InputStream copy_of_standard_input(const std::string& path)
{
    InputStream copy(system::open_temporary(), std::fclose);
    std::array<char, 1 << 16> block;
    std::size_t count = 0;
    while (copy && (count = std::fread(block.data(), 1, block.size(), stdin)) > 0) {
        if (std::fwrite(block.data(), 1, count, copy.get()) != count) {
            copy.reset();
        }
    }
    if (!copy || std::fflush(copy.get()) != 0) {
        throw FileError(path, "cannot be copied to a temporary file: " + reason());
    }
    if (std::ferror(stdin) != 0) {
        fail_reading(path);
    }
    return copy;
}

std::FILE* open_standard_input(const std::string& path)
{
    static const InputStream copy = copy_of_standard_input(path);
    const int descriptor = dup(fileno(copy.get())); // which shares its place with the copy
    lseek(descriptor, 0, SEEK_SET);
    return fdopen(descriptor, "rb");
}

} // namespace

std::string extension_of(const std::string& path)
{
    return lower_case(text_of(path_of(path).extension()));
}

bool is_named_like(const std::string& path, std::string_view ending)
{
    const std::string name = lower_case(text_of(path_of(path).filename()));
    return name.size() > ending.size() && name.ends_with(ending);
}

InputStream open_input(const std::string& path)
{
    const bool is_stream = is_standard_input(path);
    if (is_stream && extension_of(path) != ".json") {
        return {stdin, [](std::FILE*) { return 0; }};
    }
    InputStream file(is_stream ? open_standard_input(path) : std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file) {
        throw FileError(path, "cannot be opened: " + reason());
    }
    return file;
}

std::string read_file(const std::string& path)
{
    const InputStream file = open_input(path);
    std::string bytes;
    std::array<char, 1 << 16> block;
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        bytes.append(block.data(), count);
    }
    if (std::ferror(file.get()) != 0) {
        fail_reading(path);
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
