// SPDX-License-Identifier: MIT
#include "kivconvert/tiff_handle.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

namespace kivconvert
{
namespace
{

struct Complaints {
    std::array<char, 200> first = {};
    bool has_warned = false;
};
thread_local Complaints complaints;

/// The first complaint is nearest to the cause.
[[gnu::format(printf, 2, 0)]] void keep_complaint(const char*, const char* format, std::va_list values)
{
    if (complaints.first.front() == '\0') {
        std::vsnprintf(complaints.first.data(), complaints.first.size(), format, values);
    }
}

[[gnu::format(printf, 2, 0)]] void keep_warning(const char* module, const char* format, std::va_list values)
{
    complaints.has_warned = true;
    keep_complaint(module, format, values);
}

TIFF* open_in_memory(thandle_t self, TIFFReadWriteProc read, TIFFSeekProc seek, TIFFSizeProc size)
{
    silence_libtiff();
    const auto write = [](thandle_t, void*, tmsize_t) -> tmsize_t { return 0; };
    const auto close = [](thandle_t) { return 0; };
    constexpr const char* read_unmapped = "rm";
    return TIFFClientOpen("", read_unmapped, self, read, write, seek, close, size, nullptr, nullptr);
}

/// The header of a file whose first directory is at the given place. Its bytes say their order, and whether an offset
/// takes 4 of them, from the fourth on, or 8, from the eighth on.
std::string header_to(std::string_view bytes, PagePlace place)
{
    constexpr char for_large_files = 43;
    const bool ascends = bytes[0] == 'I';
    const std::size_t size = bytes[ascends ? 2 : 3] == for_large_files ? 8 : 4;
    std::string header(bytes.substr(0, 2 * size));
    for (std::size_t i = 0; i < size; ++i, place >>= 8U) {
        header[size + (ascends ? i : size - 1 - i)] = static_cast<char>(place & 0xFFU);
    }
    return header;
}

} // namespace

void silence_libtiff()
{
    [[maybe_unused]] static const bool is_quiet = [] {
        TIFFSetErrorHandler(keep_complaint);
        TIFFSetWarningHandler(keep_warning);
        return true;
    }();
}

TiffHandle::TiffHandle(const ImageBytes& file) : TiffHandle(file, std::string()) {}

TiffHandle::TiffHandle(const ImageBytes& file, PagePlace place) : TiffHandle(file, header_to(file.bytes, place))
{
    expect_whole_directory();
}

TiffHandle::TiffHandle(const ImageBytes& file, std::string header) : file_(file), header_(std::move(header))
{
    forget_complaints();
    const auto size = [](thandle_t self) -> toff_t { return static_cast<TiffHandle*>(self)->file_.bytes.size(); };
    tiff_ = open_in_memory(this, read, seek, size);
    if (tiff_ == nullptr) {
        fail();
    }
}

TiffHandle::~TiffHandle()
{
    TIFFClose(tiff_);
}

void TiffHandle::expect_whole_directory() const
{
    if (is_cut_off_) {
        fail_decoding(file_, "TIFF", "its end is missing");
    }
}

std::vector<PagePlace> TiffHandle::pages()
{
    expect_whole_directory();
    std::vector<PagePlace> places;
    do {
        if (is_page()) {
            places.push_back(TIFFCurrentDirOffset(tiff_));
        }
    } while (go_to_next());
    return places;
}

void TiffHandle::forget_complaints()
{
    complaints = {};
}

bool TiffHandle::has_warned()
{
    return complaints.has_warned;
}

void TiffHandle::fail() const
{
    fail_decoding(file_, "TIFF", complaints.first.data());
}

tmsize_t TiffHandle::read(thandle_t self, void* to, tmsize_t count)
{
    auto& handle = *static_cast<TiffHandle*>(self);
    const std::size_t begin = std::min(handle.at_, handle.file_.bytes.size());
    const std::size_t size = std::min(static_cast<std::size_t>(count), handle.file_.bytes.size() - begin);
    std::memcpy(to, handle.file_.bytes.data() + begin, size);
    if (begin < handle.header_.size()) {
        handle.header_.copy(static_cast<char*>(to), size, begin);
    }
    handle.at_ = begin + size;
    handle.is_cut_off_ = handle.is_cut_off_ || size < static_cast<std::size_t>(count);
    return static_cast<tmsize_t>(size);
}

toff_t TiffHandle::seek(thandle_t self, toff_t offset, int from)
{
    auto& handle = *static_cast<TiffHandle*>(self);
    const std::size_t base = from == SEEK_CUR ? handle.at_ : from == SEEK_END ? handle.file_.bytes.size() : 0;
    handle.at_ = base + static_cast<std::size_t>(offset);
    return handle.at_;
}

bool TiffHandle::is_page() const
{
    std::uint32_t kind = 0;
    TIFFGetFieldDefaulted(tiff_, TIFFTAG_SUBFILETYPE, &kind);
    return (kind & (FILETYPE_REDUCEDIMAGE | FILETYPE_MASK)) == 0;
}

/// @return false behind the last directory
bool TiffHandle::go_to_next()
{
    if (TIFFLastDirectory(tiff_) != 0) {
        return false;
    }
    forget_complaints();
    if (TIFFReadDirectory(tiff_) == 0) {
        fail();
    }
    expect_whole_directory();
    return true;
}

} // namespace kivconvert
