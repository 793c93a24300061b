#include <vector>

#include "platform/mfc_subset.h"

namespace {

HANDLE HandleOf(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

int CauseOf(DWORD systemError) {
  switch (systemError) {
    case ERROR_FILE_NOT_FOUND:
      return CFileException::fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_NAME:
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE:
      return CFileException::badPath;
    case ERROR_TOO_MANY_OPEN_FILES:
      return CFileException::tooManyOpenFiles;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
      return CFileException::accessDenied;
    case ERROR_SHARING_VIOLATION:
      return CFileException::sharingViolation;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return CFileException::diskFull;
    default:
      return CFileException::genericException;
  }
}

[[noreturn]] void ThrowLastError() {
  const DWORD systemError = GetLastError();
  throw new CFileException(CauseOf(systemError), static_cast<long>(systemError));
}

DWORD AccessMode(UINT openFlags) {
  if ((openFlags & CFile::modeReadWrite) != 0) {
    return GENERIC_READ | GENERIC_WRITE;
  }
  return (openFlags & CFile::modeWrite) != 0 ? GENERIC_WRITE : GENERIC_READ;
}

}  // namespace

CA2T::CA2T(const char* text) {
  const int size = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);  // with the closing zero
  std::vector<wchar_t> wide(static_cast<std::size_t>(size) + 1);
  MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), size);
  text_ = wide.data();
}

CFile::~CFile() {
  if (handle_ != -1) {
    CloseHandle(HandleOf(handle_));
  }
}

BOOL CFile::Open(LPCTSTR path, UINT openFlags, CFileException* error) {
  constexpr DWORD kExclusive = 0;
  const bool keeps = (openFlags & modeNoTruncate) != 0;
  const DWORD creation = keeps ? OPEN_ALWAYS : CREATE_ALWAYS;
  const DWORD disposition = (openFlags & modeCreate) != 0 ? creation : OPEN_EXISTING;
  const HANDLE handle = CreateFileW(path, AccessMode(openFlags), kExclusive, nullptr, disposition,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    if (error != nullptr) {
      const DWORD systemError = GetLastError();
      error->m_cause = CauseOf(systemError);
      error->m_lOsError = static_cast<long>(systemError);
    }
    return FALSE;
  }
  handle_ = reinterpret_cast<std::intptr_t>(handle);
  return TRUE;
}

ULONGLONG CFile::GetLength() const {
  LARGE_INTEGER size;
  if (GetFileSizeEx(HandleOf(handle_), &size) == 0) {
    ThrowLastError();
  }
  return static_cast<ULONGLONG>(size.QuadPart);
}

UINT CFile::Read(void* buffer, UINT count) {
  DWORD got = 0;
  if (ReadFile(HandleOf(handle_), buffer, count, &got, nullptr) == 0) {
    ThrowLastError();
  }
  return got;
}

void CFile::Write(const void* buffer, UINT count) {
  DWORD written = 0;
  if (WriteFile(HandleOf(handle_), buffer, count, &written, nullptr) == 0) {
    ThrowLastError();
  }
  // A full disk may be reported as success with fewer bytes.
  if (written != count) {
    throw new CFileException(CFileException::diskFull, ERROR_DISK_FULL);
  }
}

void CFile::SetLength(ULONGLONG length) {
  LARGE_INTEGER end;
  end.QuadPart = static_cast<LONGLONG>(length);
  if (SetFilePointerEx(HandleOf(handle_), end, nullptr, FILE_BEGIN) == 0 ||
      SetEndOfFile(HandleOf(handle_)) == 0) {
    ThrowLastError();
  }
}

void CFile::Close() {
  const std::intptr_t handle = handle_;
  handle_ = -1;
  if (handle != -1 && CloseHandle(HandleOf(handle)) == 0) {
    ThrowLastError();
  }
}
