// The part of MFC that the library uses, with MFC's names and meanings, for compilers without it.
#ifndef QUORVEX_PLATFORM_MFC_SUBSET_H_
#define QUORVEX_PLATFORM_MFC_SUBSET_H_

#include <cstdint>
#include <string>

#include "platform/win32_subset.h"

class CWinApp {
 public:
  CWinApp() = default;
  virtual ~CWinApp() = default;
  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;
};

// Shows a text to the operator and returns when it has been acknowledged (IDOK). On Windows that is
// a modal box; elsewhere, without a desktop, one line on standard error.
int AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT helpId = 0);

// Opens every exported function that calls MFC. What it switches to is the library's own module
// state, which the real MFC keeps for each library that shares it.
#define AFX_MANAGE_STATE(moduleState)

// Thrown as a pointer, as MFC does; whoever catches it calls Delete.
class CFileException {
 public:
  enum {
    none = 0,
    genericException = 1,
    fileNotFound = 2,
    badPath = 3,
    tooManyOpenFiles = 4,
    accessDenied = 5,
    sharingViolation = 11,
    diskFull = 13
  };

  explicit CFileException(int cause, long systemError = -1)
      : m_cause(cause), m_lOsError(systemError) {}
  void Delete() { delete this; }

  int m_cause;
  long m_lOsError;  // the system's own error number

 private:
  ~CFileException() = default;  // only through Delete
};

// A file opened for reading, writing or both. It is held exclusively: a second open of the same
// file through this class (on Windows: by anybody) fails until the first is closed.
class CFile {
 public:
  enum OpenFlags {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    modeCreate = 0x1000,
    modeNoTruncate = 0x2000  // with modeCreate: an existing file keeps its contents; on POSIX
                             // devices and pipes are then refused
  };

  CFile() = default;
  virtual ~CFile();
  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;

  // False when the file cannot be opened in that mode. A file that is marked read-only (on POSIX:
  // without any write permission bit) is so for every user. modeCreate empties an existing file,
  // but only once all checks passed.
  virtual BOOL Open(LPCTSTR path, UINT openFlags, CFileException* error = nullptr);
  virtual ULONGLONG GetLength() const;
  virtual UINT Read(void* buffer, UINT count);         // bytes read, fewer at the end of the file
  virtual void Write(const void* buffer, UINT count);  // throws unless every byte was written
  virtual void SetLength(ULONGLONG length);            // throws; cuts or extends the file
  virtual void Close();

 private:
  std::intptr_t handle_ = -1;  // the system's own; -1 while no file is open
};

// Narrow file names become the library's text type explicitly, through ATL's name for it. On
// Windows they are in the process's code page, as those that fopen takes.
class CA2T {
 public:
  explicit CA2T(const char* text);
  operator LPCTSTR() const { return text_.c_str(); }

 private:
  std::basic_string<TCHAR> text_;
};

#endif  // QUORVEX_PLATFORM_MFC_SUBSET_H_
