// ATL's text conversion by its name for both settings of UNICODE. Never linked or run.
#ifndef QUORVEX_TESTS_MSVC_STAND_IN_MFC_ATLCONV_H_
#define QUORVEX_TESTS_MSVC_STAND_IN_MFC_ATLCONV_H_

#include <afxwin.h>

namespace ATL {

template <int bufferLength = 128>
class CA2WEX {
 public:
  CA2WEX(LPCSTR text);
  CA2WEX(LPCSTR text, UINT codePage);
  ~CA2WEX();
  operator LPWSTR() const;

 private:
  CA2WEX(const CA2WEX&);
  CA2WEX& operator=(const CA2WEX&);
};
typedef CA2WEX<> CA2W;

template <int bufferLength = 128>
class CA2AEX {
 public:
  CA2AEX(LPCSTR text);
  CA2AEX(LPCSTR text, UINT codePage);
  ~CA2AEX();
  operator LPSTR() const;

 private:
  CA2AEX(const CA2AEX&);
  CA2AEX& operator=(const CA2AEX&);
};
typedef CA2AEX<> CA2A;

}  // namespace ATL

#if defined(_UNICODE)
#define CA2T CA2W
#else
#define CA2T CA2A
#endif

#endif  // QUORVEX_TESTS_MSVC_STAND_IN_MFC_ATLCONV_H_
