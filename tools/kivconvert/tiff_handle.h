// SPDX-License-Identifier: MIT
// A TIFF file in memory, opened by libtiff.
#pragma once

#include "kivconvert/image_decoder.h"

#include <cstddef>
#include <string>
#include <tiffio.h>
#include <vector>

namespace kivconvert
{

/// Keeps libtiff from writing to standard error.
void silence_libtiff();

/// libtiff reports complaints to functions of the whole process; they are kept for the thread that they concern.
class TiffHandle
{
public:
    /// Opens the file at its first directory. @throws FileError if there is none
    explicit TiffHandle(const ImageBytes& file);

    /// Opens it at another one, at the same cost: libtiff is shown a header that calls it the first. On its own, it
    /// would read all directories to find one.
    /// @param place one of pages() @throws FileError
    TiffHandle(const ImageBytes& file, PagePlace place);
    TiffHandle(const TiffHandle&) = delete;
    TiffHandle& operator=(const TiffHandle&) = delete;
    ~TiffHandle();

    TIFF* get() const { return tiff_; }

    /// Where the directories of all pages begin. Leaves the file at its last directory. @throws FileError
    std::vector<PagePlace> pages();

    static void forget_complaints();
    static bool has_warned();

    /// Throws the FileError that the last complaint amounts to.
    [[noreturn]] void fail() const;

private:
    static tmsize_t read(thandle_t self, void* to, tmsize_t count);
    static toff_t seek(thandle_t self, toff_t offset, int from);

    /// libtiff takes a directory without the place of the next one for the last. @throws FileError
    void expect_whole_directory() const;

    TiffHandle(const ImageBytes& file, std::string header);

    bool is_page() const;
    bool go_to_next();

    ImageBytes file_;
    std::string header_; ///< in the place of the file's
    std::size_t at_ = 0;
    bool is_cut_off_ = false; ///< whether more has been read than there is
    TIFF* tiff_ = nullptr;
};

} // namespace kivconvert
