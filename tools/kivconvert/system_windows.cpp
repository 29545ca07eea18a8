// SPDX-License-Identifier: MIT
// The program's manifest makes UTF-8 the code page of all names.
#include "kivconvert/system.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <locale.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <system_error>
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace kivconvert
{
namespace
{

/// Has errno say why a call failed that does not set it.
bool fail_by_last_error()
{
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    errno = error.default_error_condition().value();
    return false;
}

} // namespace

void system::prepare()
{
    for (std::FILE* stream : {stdin, stdout, stderr}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
}

int system::create_nameless(const std::string& /*folder*/)
{
    return -1;
}

int system::create(const std::string& path)
{
    return _open(path.c_str(), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

int system::name(int /*descriptor*/, const std::string& /*path*/)
{
    errno = ENOTSUP;
    return -1;
}

std::FILE* system::open_temporary()
{
    // std::tmpfile() would make it where only administrators may write.
    char folder[MAX_PATH + 1];
    char path[MAX_PATH];
    if (GetTempPathA(sizeof folder, folder) == 0 || GetTempFileNameA(folder, "kiv", 0, path) == 0) {
        fail_by_last_error();
        return nullptr;
    }
    return std::fopen(path, "w+bTD"); // T keeps it in memory while there is enough, D deletes it when it is closed
}

bool system::take_permissions(int /*descriptor*/, const std::string& path)
{
    return _access(path.c_str(), 0) == 0; // new files inherit theirs from the folder
}

bool system::replace(const std::string& path, const std::string& target)
{
    return MoveFileExA(path.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0 || fail_by_last_error();
}

std::ptrdiff_t system::write_some(int descriptor, std::string_view bytes)
{
    return _write(descriptor, bytes.data(), static_cast<unsigned>(std::min<std::size_t>(bytes.size(), 1U << 30)));
}

bool system::read_at(int descriptor, std::uint64_t offset, char* bytes, std::size_t count)
{
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD read = 0;
    const auto file = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); // NOLINT: what that returns is a handle
    return count <= MAXDWORD && ReadFile(file, bytes, static_cast<DWORD>(count), &read, &place) != 0 && read == count;
}

double system::classic_strtod(const char* text, char** stop)
{
    static const _locale_t classic = _create_locale(LC_ALL, "C");
    return _strtod_l(text, stop, classic);
}

int system::open_terminal()
{
    return -1;
}

} // namespace kivconvert
