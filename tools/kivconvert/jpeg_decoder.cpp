// SPDX-License-Identifier: MIT
// JPEG files, decoded by libjpeg.
#include "kivconvert/errors.h"
#include "kivconvert/exif.h"
#include "kivconvert/image_decoder.h"
#include "kivconvert/image_files.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio> // jpeglib.h needs it
#include <iterator>

#include <jpeglib.h>

#include <jerror.h>

namespace kivconvert
{
namespace
{

/// More scans than any picture has: each goes through all pixels anew.
constexpr int max_scans = 1000;

/// In bytes: progressive files are held at once, with up to 6 bytes a pixel, however small they are.
constexpr long max_memory = 1L << 30;

/// What libjpeg's callbacks work on; it begins with what libjpeg itself knows of it.
struct JpegErrors {
    jpeg_error_mgr base;
    std::jmp_buf target;
    std::array<char, JMSG_LENGTH_MAX> complaint;
};

[[noreturn]] void on_jpeg_error(j_common_ptr jpeg)
{
    auto* const errors = reinterpret_cast<JpegErrors*>(jpeg->err);
    errors->base.format_message(jpeg, errors->complaint.data());
    std::longjmp(errors->target, 1);
}

/// Where pixels are lost, libjpeg warns and makes them up.
void on_jpeg_message(j_common_ptr jpeg, int level)
{
    constexpr int harmless[] = {JWRN_ADOBE_XFORM, JWRN_EXTRANEOUS_DATA, JWRN_JFIF_MAJOR};
    const int code = jpeg->err->msg_code;
    if (level < 0 && std::find(std::begin(harmless), std::end(harmless), code) == std::end(harmless)) {
        on_jpeg_error(jpeg);
    }
}

void expect_few_scans(j_common_ptr jpeg)
{
    if (reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > max_scans) {
        jpeg->err->msg_code = JERR_BAD_PROGRESSION;
        on_jpeg_error(jpeg);
    }
}

/// libjpeg's object.
struct JpegHandle {
    jpeg_decompress_struct jpeg = {};
    JpegErrors errors = {};
    jpeg_progress_mgr progress = {};

    JpegHandle()
    {
        jpeg.err = jpeg_std_error(&errors.base);
        errors.base.error_exit = on_jpeg_error;
        errors.base.emit_message = on_jpeg_message;
        progress.progress_monitor = expect_few_scans;
    }
    JpegHandle(const JpegHandle&) = delete;
    JpegHandle& operator=(const JpegHandle&) = delete;
    ~JpegHandle() { jpeg_destroy_decompress(&jpeg); }
};

class JpegDecoder final : public ImageDecoder
{
public:
    explicit JpegDecoder(const ImageBytes& file) : file_(file)
    {
        guarded([this] {
            jpeg_create_decompress(&handle_.jpeg);
            handle_.jpeg.progress = &handle_.progress;
            handle_.jpeg.mem->max_memory_to_use = max_memory;
            jpeg_mem_src(&handle_.jpeg, reinterpret_cast<const unsigned char*>(file_.bytes.data()),
                         static_cast<unsigned long>(file_.bytes.size()));
            jpeg_save_markers(&handle_.jpeg, JPEG_APP0 + 1, 0xffff);
            jpeg_read_header(&handle_.jpeg, TRUE);
        });
        read_layout();
        guarded([this] { jpeg_start_decompress(&handle_.jpeg); });
    }

    void read_row(std::uint8_t* row) override
    {
        guarded([this, row] {
            JSAMPROW rows[] = {row};
            jpeg_read_scanlines(&handle_.jpeg, rows, 1);
            if (handle_.jpeg.output_scanline == handle_.jpeg.output_height) {
                jpeg_finish_decompress(&handle_.jpeg);
            }
        });
    }

private:
    /// Calls libjpeg, which leaves `calls` by longjmp if something is wrong: nothing in there may need a destructor.
    template <class Calls>
    void guarded(const Calls& calls)
    {
        if (setjmp(handle_.errors.target) != 0) {
            fail_decoding(file_, "JPEG", handle_.errors.complaint.data());
        }
        calls();
    }

    void read_layout()
    {
        jpeg_decompress_struct& jpeg = handle_.jpeg;
        layout_.width = static_cast<int>(jpeg.image_width);
        layout_.height = static_cast<int>(jpeg.image_height);
        expect_possible_frame(file_.path, layout_.width, layout_.height);
        if (jpeg.jpeg_color_space == JCS_CMYK || jpeg.jpeg_color_space == JCS_YCCK) {
            throw FileError(file_.path, "has colours of ink (CMYK); grey and RGB images are taken");
        }
        layout_.colours = jpeg.jpeg_color_space == JCS_GRAYSCALE ? 1 : 3;
        jpeg.out_color_space = layout_.colours == 1 ? JCS_GRAYSCALE : JCS_RGB;
        for (jpeg_saved_marker_ptr marker = jpeg.marker_list; marker != nullptr; marker = marker->next) {
            const std::string_view data(reinterpret_cast<const char*>(marker->data), marker->data_length);
            layout_.orientation = layout_.orientation == 1 ? exif_orientation(data) : layout_.orientation;
        }
    }

    ImageBytes file_;
    JpegHandle handle_;
};

} // namespace

ImageDecoderPtr decode_jpeg(const ImageBytes& file)
{
    return std::make_unique<JpegDecoder>(file);
}

} // namespace kivconvert
