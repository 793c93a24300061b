// Declarations of MFC and Win32 as the real headers have them, as many as the library uses, so that
// its sources can be checked where there is no Visual C++. Nothing here is ever linked or run.
#ifndef QUORVEX_TESTS_MSVC_STAND_IN_MFC_AFXWIN_H_
#define QUORVEX_TESTS_MSVC_STAND_IN_MFC_AFXWIN_H_

// Win32's basic types. long has 32 bits; handles to memory are plain pointers to void.
#define CONST const
#define VOID void
#define WINAPI __stdcall
typedef int BOOL;
typedef int INT;
typedef unsigned int UINT;
typedef long LONG;
typedef unsigned long DWORD;
typedef long long LONGLONG;
typedef unsigned long long ULONGLONG;
typedef unsigned long long ULONG_PTR;
typedef ULONG_PTR SIZE_T;
typedef void* LPVOID;
typedef void* HANDLE;
typedef HANDLE HLOCAL;
typedef HANDLE HGLOBAL;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef wchar_t* LPWSTR;
typedef const wchar_t* LPCWSTR;

// Both spellings of the switch must agree, as one steers Win32 and the other the C runtime.
#if defined(UNICODE)
typedef wchar_t TCHAR;
typedef LPCWSTR LPCTSTR;
#else
typedef char TCHAR;
typedef LPCSTR LPCTSTR;
#endif
#if defined(_UNICODE)
#define __T(text) L##text
#else
#define __T(text) text
#endif
#define _T(text) __T(text)

// The macros with ordinary names that break sources which use the names for something else.
#define FALSE 0
#define TRUE 1
#define ERROR 0
#define NO_ERROR 0L
#define DELETE (0x00010000L)
#define ABSOLUTE 1
#define RELATIVE 2
#define IN
#define OUT
#define OPTIONAL
#define STRICT 1
#define pascal __stdcall
#define cdecl
#define near
#define far
#define small char
#define hyper long long
#define interface struct
#if !defined(NOMINMAX)
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define min(a, b) (((a) < (b)) ? (a) : (b))
#endif

#define LMEM_MOVEABLE 0x0002
#define LMEM_ZEROINIT 0x0040
#define LHND (LMEM_MOVEABLE | LMEM_ZEROINIT)
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)

extern "C" {
__declspec(dllimport) HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T size);
__declspec(dllimport) LPVOID WINAPI LocalLock(HLOCAL handle);
__declspec(dllimport) BOOL WINAPI LocalUnlock(HLOCAL handle);
__declspec(dllimport) HLOCAL WINAPI LocalFree(HLOCAL handle);
__declspec(dllimport) HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size);
__declspec(dllimport) LPVOID WINAPI GlobalLock(HGLOBAL handle);
__declspec(dllimport) BOOL WINAPI GlobalUnlock(HGLOBAL handle);
__declspec(dllimport) HGLOBAL WINAPI GlobalFree(HGLOBAL handle);
}

#define MB_OK 0x00000000L
#define IDOK 1

namespace ATL {
class CAtlTransactionManager;
}
using namespace ATL;

class CObject {
 public:
  virtual ~CObject();

 protected:
  CObject();

 private:
  CObject(const CObject&);
  void operator=(const CObject&);
};

class CException : public CObject {
 public:
  void Delete();
};

class CFileException : public CException {
 public:
  enum {
    none,
    genericException,
    fileNotFound,
    badPath,
    tooManyOpenFiles,
    accessDenied,
    invalidFile,
    removeCurrentDir,
    directoryFull,
    badSeek,
    hardIO,
    sharingViolation,
    lockViolation,
    diskFull,
    endOfFile
  };

  CFileException(int cause = CFileException::none, LONG osError = -1,
                 LPCTSTR archiveName = nullptr);

  int m_cause;
  LONG m_lOsError;
};

class CFile : public CObject {
 public:
  enum OpenFlags {
    modeRead = 0x00000,
    modeWrite = 0x00001,
    modeReadWrite = 0x00002,
    shareCompat = 0x00000,
    shareExclusive = 0x00010,
    shareDenyWrite = 0x00020,
    shareDenyRead = 0x00030,
    shareDenyNone = 0x00040,
    modeNoInherit = 0x00080,
    modeCreate = 0x01000,
    modeNoTruncate = 0x02000,
    typeText = 0x04000,
    typeBinary = 0x08000
  };

  CFile();
  CFile(HANDLE file);
  CFile(LPCTSTR path, UINT openFlags);

  virtual BOOL Open(LPCTSTR path, UINT openFlags, CFileException* error = nullptr);
  virtual BOOL Open(LPCTSTR path, UINT openFlags, CAtlTransactionManager* transactions,
                    CFileException* error = nullptr);
  virtual ULONGLONG GetPosition() const;
  virtual ULONGLONG Seek(LONGLONG offset, UINT from);
  virtual void SetLength(ULONGLONG length);
  virtual ULONGLONG GetLength() const;
  virtual UINT Read(void* buffer, UINT count);
  virtual void Write(const void* buffer, UINT count);
  virtual void Abort();
  virtual void Flush();
  virtual void Close();
};

class CWinApp : public CObject {
 public:
  explicit CWinApp(LPCTSTR appName = nullptr);
  virtual BOOL InitInstance();
  virtual int ExitInstance();
};

// With MFC linked in the macro is empty; the library is never built that way.
#if defined(_AFXDLL)
class AFX_MODULE_STATE;
AFX_MODULE_STATE* __stdcall AfxGetStaticModuleState();
struct AFX_MAINTAIN_STATE2 {
  explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state) noexcept;
  ~AFX_MAINTAIN_STATE2();
};
#define AFX_MANAGE_STATE(state) AFX_MAINTAIN_STATE2 _ctlState(state);
#endif

int __stdcall AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT helpId = 0);
int __stdcall AfxMessageBox(UINT textId, UINT type = MB_OK, UINT helpId = static_cast<UINT>(-1));

#endif  // QUORVEX_TESTS_MSVC_STAND_IN_MFC_AFXWIN_H_
