// SPDX-License-Identifier: MIT
// The program's manifest makes UTF-8 the code page of all names.
#include "kivconvert/system.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <locale.h>
#include <stdlib.h>
#include <sys/stat.h>
#define NOMINMAX
#include <windows.h>

namespace kivconvert
{

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

bool system::take_permissions(int /*descriptor*/, const std::string& path)
{
    return _access(path.c_str(), 0) == 0; // new files inherit theirs from the folder
}

bool system::replace(const std::string& path, const std::string& target)
{
    if (MoveFileExA(path.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
        errno = EACCES;
        return false;
    }
    return true;
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
