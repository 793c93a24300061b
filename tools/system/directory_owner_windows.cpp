#include <fmt/format.h>
#include <windows.h>

#include <stdexcept>
#include <string>
#include <system_error>

#include "tools/system/directory_owner.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* kMark = L".owner";

// And no link, nor what else stands for another place.
bool IsPlainDirectory(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

// Opened for this process alone, which fails while its owner has it open.
HANDLE OpenMark(const fs::path& directory, DWORD disposition) {
  return CreateFileW((directory / kMark).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                     disposition, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

void RemoveIfOwnerless(const fs::path& path) {
  if (!IsPlainDirectory(path)) {
    return;
  }
  const HANDLE mark = OpenMark(path, OPEN_EXISTING);
  if (mark == INVALID_HANDLE_VALUE) {
    return;
  }
  CloseHandle(mark);
  std::error_code stays;
  fs::remove_all(path, stays);
}

}  // namespace

DirectoryOwner::DirectoryOwner(const fs::path& directory)
    : mark_(reinterpret_cast<std::intptr_t>(OpenMark(directory, CREATE_NEW))) {
  if (mark_ == -1) {
    const int error = static_cast<int>(GetLastError());
    throw std::runtime_error(fmt::format("cannot mark the folder {}: {}", Utf8Name(directory),
                                         std::system_category().message(error)));
  }
}

void DirectoryOwner::Release() {
  if (mark_ != -1) {
    CloseHandle(reinterpret_cast<HANDLE>(mark_));
    mark_ = -1;
  }
}

void RemoveOwnerlessDirectories(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (Utf8Name(entry->path().filename()).rfind(kDirectoryPrefix, 0) == 0) {
      RemoveIfOwnerless(entry->path());
    }
  }
}

}  // namespace quorvex::tools
