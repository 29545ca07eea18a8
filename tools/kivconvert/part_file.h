// SPDX-License-Identifier: MIT
// A file that takes the place of another one once it is whole.
#pragma once

#include <string>
#include <string_view>

namespace kivconvert
{

/// Whether a part file has a name while it is written.
enum class PartName {
    none_if_possible, ///< where the file system has files without a name
    always,
};

/// A new file in the folder of the target. Unless it has replaced the target, it is gone with this object.
///
/// A signal ends the program at once, and nothing cleans up then. The file therefore has no name while it is written:
/// the system removes such a file with the process, even if that is killed. Only where the file system has no such
/// files, or between the two system calls that replace an older target, a hidden file `.kivconvert-PID-N` may be left.
/// It is never read, and may be deleted.
class PartFile
{
public:
    explicit PartFile(const std::string& target, PartName name = PartName::none_if_possible);
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile();

    /// Returns false on failure, with the reason in errno; also if the file could not be created.
    bool write(std::string_view bytes);

    /// Takes the target's place, and its permissions; to be called once, after everything has been written. Returns
    /// false on failure, with the reason in errno.
    bool replace_target();

private:
    bool close();

    std::string target_;
    std::string name_; ///< empty: none
    int descriptor_ = -1;
    int failure_ = 0; ///< why there is no descriptor
};

} // namespace kivconvert
