// SPDX-License-Identifier: MIT
// What Windows does in another way than other systems.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace kivconvert::system
{

/// Prepares the process; to be called first. Standard streams carry bytes, and a file that grows over the size limit
/// is reported like any other that cannot be written.
void prepare();

/// A new file in a folder, open for writing, that has no name; -1 if that cannot be had.
int create_nameless(const std::string& folder);

/// A new file, open for writing; -1 on failure, with the reason in errno, which is EEXIST if there is one.
int create(const std::string& path);

/// Gives a file without a name one. -1 on failure, with the reason in errno, which is EEXIST if a file has it.
int name(int descriptor, const std::string& path);

/// A file of its own without a name, open for writing and reading; null on failure, with the reason in errno.
std::FILE* open_temporary();

/// Gives a file the permissions of another one. False if there is no such file.
bool take_permissions(int descriptor, const std::string& path);

/// Has a file take the name of another one, if there is one. False on failure, with the reason in errno.
bool replace(const std::string& path, const std::string& target);

/// Writes bytes, as many as the system takes at once. @returns their number, or -1 on failure, with the reason in errno
std::ptrdiff_t write_some(int descriptor, std::string_view bytes);

/// Reads bytes from a place in a file. False if there are not so many.
bool read_at(int descriptor, std::uint64_t offset, char* bytes, std::size_t count);

/// std::strtod() whatever the locale. The standard library of Clang 14 has no std::from_chars() for doubles.
double classic_strtod(const char* text, char** stop);

/// The terminal of standard error, opened for writing that never waits; -1 if there is none.
int open_terminal();

} // namespace kivconvert::system
