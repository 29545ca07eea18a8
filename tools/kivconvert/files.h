// SPDX-License-Identifier: MIT
// Files as bytes.
#pragma once

#include "kivconvert/part_file.h"

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace kivconvert
{

/// The extension in lower case, with its dot; empty if there is none.
std::string extension_of(const std::string& path);

/// Whether something stands before the ending in the file's name, in capitals or not.
bool is_named_like(const std::string& path, std::string_view ending);

using InputStream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// Opens a file at its beginning. Standard input can be opened again and again where it is JSON, the kinds of which are
/// told apart by reading them: it is copied to a file without a name first. @throws FileError
InputStream open_input(const std::string& path);

/// @throws FileError if the file cannot be read or is empty.
std::string read_file(const std::string& path);

/// The same without the byte order mark that some programs begin a text with.
std::string read_text(const std::string& path);

/// Replaces the file at `path`, or the target of a symbolic link there, once all bytes are written: after a failure,
/// whatever was there is unchanged.
///
/// @throws FileError if the file cannot be written, is read-only, or is not a regular file
void write_file(const std::string& path, std::string_view bytes);

/// The same, piece by piece: whatever was there is unchanged until finish().
class FileWriter
{
public:
    /// @throws FileError as write_file()
    explicit FileWriter(const std::string& path);

    /// @throws FileError
    void write(std::string_view bytes);

    /// To be called once, after everything has been written. @throws FileError
    void finish();

private:
    void flush();
    void write_now(std::string_view bytes);

    std::string path_;
    std::unique_ptr<PartFile> part_; ///< null: standard output
    std::string buffer_;
};

} // namespace kivconvert
