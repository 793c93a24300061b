// The part of MFC that the library uses, with MFC's names and meanings, for compilers without it.
#ifndef QUORVEX_PLATFORM_MFC_SUBSET_H_
#define QUORVEX_PLATFORM_MFC_SUBSET_H_

#include "platform/win32_subset.h"

class CWinApp {
 public:
  CWinApp() = default;
  virtual ~CWinApp() = default;
  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;
};

// Shows a text to the operator and returns when it has been acknowledged (IDOK). Without a desktop
// that is one line on standard error.
int AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT helpId = 0);

// Thrown as a pointer, as MFC does; whoever catches it calls Delete.
class CFileException {
 public:
  enum { none, genericException, fileNotFound, badPath, tooManyOpenFiles, accessDenied, diskFull };

  explicit CFileException(int cause, long systemError = -1)
      : m_cause(cause), m_lOsError(systemError) {}
  void Delete() { delete this; }

  int m_cause;
  long m_lOsError;  // the system's own error number

 private:
  ~CFileException() = default;  // only through Delete
};

// A file opened for reading and writing or for writing. It is held exclusively: a second open of
// the same file through this class fails until the first is closed.
class CFile {
 public:
  enum OpenFlags {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    modeCreate = 0x1000
  };

  CFile() = default;
  virtual ~CFile();
  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;

  // False when the file cannot be opened in that mode. A file without any write permission bit
  // counts as read-only for every user. modeCreate empties an existing file, but only once all
  // checks passed.
  virtual BOOL Open(LPCTSTR path, UINT openFlags, CFileException* error = nullptr);
  virtual ULONGLONG GetLength() const;
  virtual UINT Read(void* buffer, UINT count);         // bytes read, fewer at the end of the file
  virtual void Write(const void* buffer, UINT count);  // throws unless every byte was written
  virtual void Close();

 private:
  int descriptor_ = -1;
};

// Narrow file names become the library's text type explicitly, through ATL's name for it.
class CA2T {
 public:
  explicit CA2T(const char* text) : text_(text) {}
  operator LPCTSTR() const { return text_; }

 private:
  const char* text_;
};

#endif  // QUORVEX_PLATFORM_MFC_SUBSET_H_
