#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/mfc_subset.h"

namespace {

constexpr mode_t kAnyWriteBit = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kNewFileMode = 0666;  // before the process's mask

int DescriptorOf(std::intptr_t handle) { return static_cast<int>(handle); }

int CauseOf(int systemError) {
  switch (systemError) {
    case ENOENT:
      return CFileException::fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
      return CFileException::badPath;
    case EMFILE:
    case ENFILE:
      return CFileException::tooManyOpenFiles;
    case EACCES:
    case EISDIR:
    case EROFS:
      return CFileException::accessDenied;
    case EWOULDBLOCK:
      return CFileException::sharingViolation;
    case ENOSPC:
    case EDQUOT:
      return CFileException::diskFull;
    default:
      return CFileException::genericException;
  }
}

int AccessMode(UINT openFlags) {
  if ((openFlags & CFile::modeReadWrite) != 0) {
    return O_RDWR;
  }
  return (openFlags & CFile::modeWrite) != 0 ? O_WRONLY : O_RDONLY;
}

// The checks between opening and emptying a file. Returns 0 or the error that refuses the file.
int CheckOpened(int descriptor, bool forWriting) {
  struct stat status;
  if (fstat(descriptor, &status) != 0) {
    return errno;
  }
  if (S_ISDIR(status.st_mode)) {
    return EISDIR;
  }
  // Tested on the mode bits, since root passes every access check.
  if (forWriting && (status.st_mode & kAnyWriteBit) == 0) {
    return EACCES;
  }
  // Some file systems have no locks; only a lock that somebody else holds refuses the file.
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    return EWOULDBLOCK;
  }
  return 0;
}

// Empties the file that modeCreate found, or refuses to keep the contents of what has none: a
// device, or a pipe, whose reader could end the process by closing it. Returns 0 or the error.
int PrepareCreated(int descriptor, bool keepsContents) {
  struct stat status;
  if (fstat(descriptor, &status) != 0) {
    return errno;
  }
  if (keepsContents) {
    return S_ISREG(status.st_mode) ? 0 : EACCES;
  }
  return S_ISREG(status.st_mode) && ::ftruncate(descriptor, 0) != 0 ? errno : 0;
}

}  // namespace

CA2T::CA2T(const char* text) : text_(text) {}

CFile::~CFile() {
  if (handle_ >= 0) {
    ::close(DescriptorOf(handle_));
  }
}

BOOL CFile::Open(LPCTSTR path, UINT openFlags, CFileException* error) {
  const bool create = (openFlags & modeCreate) != 0;
  const int access = AccessMode(openFlags);
  // O_NONBLOCK: a named pipe without a partner is refused instead of waited for.
  int flags = access | O_CLOEXEC | O_NONBLOCK;
  if (create) {
    flags |= O_CREAT;
  }
  const int descriptor = ::open(path, flags, kNewFileMode);
  int systemError = descriptor < 0 ? errno : CheckOpened(descriptor, access != O_RDONLY);
  if (systemError == 0 && create) {
    systemError = PrepareCreated(descriptor, (openFlags & modeNoTruncate) != 0);
  }
  if (systemError != 0) {
    if (descriptor >= 0) {
      ::close(descriptor);
    }
    if (error != nullptr) {
      error->m_cause = CauseOf(systemError);
      error->m_lOsError = systemError;
    }
    return FALSE;
  }
  handle_ = descriptor;
  return TRUE;
}

ULONGLONG CFile::GetLength() const {
  struct stat status;
  if (fstat(DescriptorOf(handle_), &status) != 0) {
    throw new CFileException(CauseOf(errno), errno);
  }
  return static_cast<ULONGLONG>(status.st_size);
}

UINT CFile::Read(void* buffer, UINT count) {
  UINT total = 0;
  while (total < count) {
    const ssize_t got =
        ::read(DescriptorOf(handle_), static_cast<char*>(buffer) + total, count - total);
    if (got < 0 && errno == EINTR) {
      continue;
    }
    if (got < 0) {
      throw new CFileException(CauseOf(errno), errno);
    }
    if (got == 0) {
      break;
    }
    total += static_cast<UINT>(got);
  }
  return total;
}

void CFile::Write(const void* buffer, UINT count) {
  UINT total = 0;
  while (total < count) {
    const ssize_t written =
        ::write(DescriptorOf(handle_), static_cast<const char*>(buffer) + total, count - total);
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (written < 0) {
      throw new CFileException(CauseOf(errno), errno);
    }
    if (written == 0) {
      throw new CFileException(CFileException::diskFull, ENOSPC);
    }
    total += static_cast<UINT>(written);
  }
}

void CFile::SetLength(ULONGLONG length) {
  if (::ftruncate(DescriptorOf(handle_), static_cast<off_t>(length)) != 0) {
    throw new CFileException(CauseOf(errno), errno);
  }
}

void CFile::Close() {
  const int descriptor = DescriptorOf(handle_);
  handle_ = -1;
  if (descriptor >= 0 && ::close(descriptor) != 0) {
    throw new CFileException(CauseOf(errno), errno);
  }
}
