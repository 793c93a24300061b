#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <cerrno>
#include <filesystem>

#include "tools/system/system_files.h"

namespace quorvex::tools {

// Not by fopen: the C library of Windows takes the mode "wbx" for "wb".
std::FILE* CreateNewFile(const std::filesystem::path& path) {
  const int descriptor =
      _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
             _S_IREAD | _S_IWRITE);
  return descriptor >= 0 ? _fdopen(descriptor, "wb") : nullptr;
}

std::FILE* OpenScratchFile() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  wchar_t name[MAX_PATH + 1] = {};
  if (error || GetTempFileNameW(folder.c_str(), L"qvx", 0, name) == 0) {
    errno = ENOENT;
    return nullptr;
  }
  const int descriptor =
      _wopen(name, _O_RDWR | _O_CREAT | _O_TRUNC | _O_BINARY | _O_NOINHERIT | _O_TEMPORARY,
             _S_IREAD | _S_IWRITE);
  return descriptor >= 0 ? _fdopen(descriptor, "w+b") : nullptr;
}

std::filesystem::path FileNameKey(const std::filesystem::path& name) {
  std::wstring key = name.wstring();
  CharLowerBuffW(key.data(), static_cast<DWORD>(key.size()));
  return key;
}

void PassStandardStreamsUnchanged() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
}

}  // namespace quorvex::tools
