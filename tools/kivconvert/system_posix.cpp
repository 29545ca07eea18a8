// SPDX-License-Identifier: MIT
#include "kivconvert/system.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <fmt/format.h>
#include <locale.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kivconvert
{
namespace
{

constexpr int mode_before_umask = 0666;
constexpr const char* own_descriptors = "/proc/self/fd";

} // namespace

void system::prepare()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

int system::create_nameless(const std::string& folder)
{
    const bool can_be_named = access(own_descriptors, X_OK) == 0;
    return can_be_named ? open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode_before_umask) : -1;
}

int system::create(const std::string& path)
{
    return open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode_before_umask);
}

int system::name(int descriptor, const std::string& path)
{
    const std::string link = fmt::format("{}/{}", own_descriptors, descriptor);
    return linkat(AT_FDCWD, link.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
}

std::FILE* system::open_temporary()
{
    return std::tmpfile();
}

bool system::take_permissions(int descriptor, const std::string& path)
{
    struct stat other = {};
    if (stat(path.c_str(), &other) != 0) {
        return false;
    }
    fchmod(descriptor, other.st_mode);
    return true;
}

bool system::replace(const std::string& path, const std::string& target)
{
    return std::rename(path.c_str(), target.c_str()) == 0;
}

std::ptrdiff_t system::write_some(int descriptor, std::string_view bytes)
{
    return ::write(descriptor, bytes.data(), bytes.size());
}

bool system::read_at(int descriptor, std::uint64_t offset, char* bytes, std::size_t count)
{
    return pread(descriptor, bytes, count, static_cast<off_t>(offset)) == static_cast<ssize_t>(count);
}

double system::classic_strtod(const char* text, char** stop)
{
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", locale_t());
    return strtod_l(text, stop, classic);
}

int system::open_terminal()
{
    // Opened once more, so that O_NONBLOCK concerns nobody else's output.
    const char* const name = ttyname(STDERR_FILENO);
    return name == nullptr ? -1 : open(name, O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

} // namespace kivconvert
