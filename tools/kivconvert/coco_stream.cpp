// SPDX-License-Identifier: MIT
#include "kivconvert/coco_stream.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/json_reader.h"
#include "kivconvert/memory_limit.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>

namespace kivconvert
{
namespace
{

/// The bytes of a file, one after the other, with a copy of those since the last call of take().
class ByteStream
{
public:
    explicit ByteStream(const std::string& path) : path_(path), file_(open_input(path)) { fill(); }

    bool at_end() const { return next_ == size_; }
    char current() const { return block_[next_]; }

    void advance()
    {
        lines_ += current() == '\n' ? 1 : 0;
        if (++next_ == size_) {
            copy_block();
            fill();
        }
    }

    std::uint64_t offset() const { return before_ + next_; }
    std::size_t line() const { return lines_ + 1; }

    /// What has been read since the last call.
    std::string take()
    {
        copy_block();
        return std::exchange(copy_, {});
    }

    bool has_much() const { return copy_.size() >= block_.size(); }

private:
    void fill()
    {
        before_ += size_;
        size_ = std::fread(block_.data(), 1, block_.size(), file_.get());
        next_ = copied_ = 0;
        if (std::ferror(file_.get()) != 0) {
            throw FileError(path_, std::string("cannot be read: ") + std::strerror(errno));
        }
    }

    void copy_block()
    {
        expect_affordable(path_, static_cast<double>(copy_.size()), "bytes in one piece", 4);
        copy_.append(block_.data() + copied_, next_ - copied_);
        copied_ = next_;
    }

    const std::string& path_;
    InputStream file_;
    std::array<char, 1 << 16> block_;
    std::size_t size_ = 0;
    std::size_t next_ = 0;
    std::size_t copied_ = 0;
    std::uint64_t before_ = 0; ///< how many bytes precede the block
    std::size_t lines_ = 0;
    std::string copy_;
};

/// What the parser reads from; without a stream, the end.
class ByteIterator
{
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = char;

    ByteIterator() = default;
    explicit ByteIterator(ByteStream& stream) : stream_(&stream) {}

    char operator*() const { return stream_->current(); }
    ByteIterator& operator++()
    {
        stream_->advance();
        return *this;
    }
    bool operator==(const ByteIterator&) const { return stream_->at_end(); } // it is only compared with the end
    bool operator!=(const ByteIterator& end) const { return !(*this == end); }

private:
    ByteStream* stream_ = nullptr;
};

/// What the parser reports: how deep it is, and below which names. All functions return whether to go on.
class Events
{
public:
    virtual ~Events() = default;

    bool null() { return scalar(); }
    bool boolean(bool) { return scalar(); }
    bool number_integer(Json::number_integer_t number) { return whole(number); }
    bool number_unsigned(Json::number_unsigned_t number)
    {
        return std::in_range<std::int64_t>(number) ? whole(static_cast<std::int64_t>(number)) : scalar();
    }
    bool number_float(Json::number_float_t, const std::string&) { return scalar(); }
    bool string(const std::string&) { return text(); }
    bool binary(const Json::binary_t&) { return scalar(); }
    bool start_object(std::size_t) { return start(true); }
    bool start_array(std::size_t) { return start(false); }
    bool end_object() { return end(); }
    bool end_array() { return end(); }
    virtual bool key(const std::string& name) = 0;
    virtual bool parse_error(std::size_t, const std::string&, const Json::exception&) { return false; }

protected:
    virtual bool start(bool is_object) = 0;
    virtual bool end() = 0;
    virtual bool whole(std::int64_t) { return scalar(); }
    virtual bool text() { return scalar(); }
    virtual bool scalar() { return true; }
};

CocoSection section_named(const std::string& name)
{
    return name == "images"        ? CocoSection::images
           : name == "categories"  ? CocoSection::categories
           : name == "annotations" ? CocoSection::annotations
                                   : CocoSection::other;
}

class SectionReader final : public Events
{
public:
    SectionReader(ByteStream& stream, const std::function<void(CocoElement& element)>& take,
                  const std::function<void(std::string_view bytes)>& pass)
        : stream_(stream), take_(take), pass_(pass)
    {
    }

    bool key(const std::string& name) override
    {
        if (is_list_ || depth_ == 1) {
            section_ = is_list_ ? CocoSection::annotations : section_named(name);
        }
        if (depth_ == element_depth() + 1) {
            member_ = name;
        }
        is_in_counts_ = depth_ == element_depth() + 2 && member_ == "segmentation" && name == "counts";
        return true;
    }

    /// What has not been passed on yet.
    void finish() { pass_on(stream_.take()); }

protected:
    bool start(bool is_object) override
    {
        if (depth_ == 0 && !is_object) {
            is_list_ = true;
            section_ = CocoSection::annotations;
        }
        note_form(is_object);
        if (is_where_elements_are()) {
            is_object ? begin_element() : report_stray();
        }
        ++depth_;
        return true;
    }

    bool end() override
    {
        --depth_;
        if (is_in_element_ && depth_ == element_depth()) {
            end_element();
        }
        if (depth_ == 1 && !is_list_) {
            section_ = CocoSection::other;
        }
        return pass_on_if_much();
    }

    bool whole(std::int64_t number) override
    {
        if (is_in_element_ && depth_ == element_depth() + 1) {
            note_number(number);
        }
        return scalar();
    }

    bool text() override
    {
        if (is_in_counts_ && depth_ == element_depth() + 2) {
            element_.form = CocoForm::packed_counts;
        }
        return scalar();
    }

    bool scalar() override
    {
        if (is_where_elements_are()) {
            report_stray();
        }
        return pass_on_if_much();
    }

private:
    bool pass_on_if_much()
    {
        if (!is_in_element_ && stream_.has_much()) {
            pass_on(stream_.take());
        }
        return true;
    }

    int element_depth() const { return is_list_ ? 1 : 2; }
    bool is_where_elements_are() const { return in_section() && depth_ == element_depth(); }
    bool in_section() const { return section_ != CocoSection::other; }

    void note_number(std::int64_t number)
    {
        if (member_ == "id") {
            element_.id = number;
        } else if (member_ == "image_id") {
            element_.image = number;
        } else if (member_ == "category_id") {
            element_.category = number;
        }
    }

    void note_form(bool is_object)
    {
        if (is_object || !is_in_element_) {
            return;
        }
        if (depth_ == element_depth() + 1 && member_ == "segmentation") {
            element_.form = CocoForm::polygons;
        } else if (depth_ == element_depth() + 2 && is_in_counts_) {
            element_.form = CocoForm::plain_counts;
        }
    }

    /// An element that is no object; its bytes are passed on.
    void report_stray()
    {
        element_ = {};
        element_.section = section_;
        element_.line = stream_.line();
        take_(element_);
    }

    void begin_element()
    {
        std::string before = stream_.take();
        before.pop_back(); // the brace belongs to the element
        pass_on(before);
        element_ = {};
        element_.section = section_;
        element_.offset = stream_.offset() - 1;
        element_.line = stream_.line();
        is_in_element_ = true;
    }

    void end_element()
    {
        is_in_element_ = false;
        element_.text = "{" + stream_.take();
        take_(element_);
    }

    void pass_on(std::string_view bytes) const
    {
        if (pass_) {
            pass_(bytes);
        }
    }

    ByteStream& stream_;
    const std::function<void(CocoElement& element)>& take_;
    const std::function<void(std::string_view bytes)>& pass_;
    int depth_ = 0;
    bool is_list_ = false;
    bool is_in_element_ = false;
    bool is_in_counts_ = false;
    CocoSection section_ = CocoSection::other;
    std::string member_;
    CocoElement element_;
};

/// Goes on until it is known whether the file is a data set.
class KindReader final : public Events
{
public:
    bool is_data_set = false;

    bool key(const std::string& name) override
    {
        constexpr const char* others[] = {"runs", "counts", "contours", "type"};
        is_data_set = depth_ == 1 && (name == "images" || name == "annotations");
        const bool is_other = depth_ == 1 && std::find(std::begin(others), std::end(others), name) != std::end(others);
        return !is_data_set && !is_other;
    }

protected:
    bool start(bool is_object) override
    {
        is_data_set = depth_ == 0 && !is_object;
        ++depth_;
        return !is_data_set;
    }

    bool end() override
    {
        --depth_;
        return true;
    }

private:
    int depth_ = 0;
};

} // namespace

void read_coco_stream(const std::string& path, const std::function<void(CocoElement& element)>& take,
                      const std::function<void(std::string_view bytes)>& pass)
{
    ByteStream stream(path);
    SectionReader reader(stream, take, pass);
    if (!Json::sax_parse(ByteIterator(stream), ByteIterator(), &reader)) {
        throw FileError(path, stream.line(), "is not valid JSON from here on");
    }
    reader.finish();
}

bool is_coco_data_set(const std::string& path)
{
    ByteStream stream(path);
    KindReader reader;
    Json::sax_parse(ByteIterator(stream), ByteIterator(), &reader);
    return reader.is_data_set;
}

} // namespace kivconvert
