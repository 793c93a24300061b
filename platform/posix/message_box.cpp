#include <cstdio>

#include "platform/mfc_subset.h"

int AfxMessageBox(LPCTSTR text, UINT, UINT) {
  std::fprintf(stderr, "%s\n", text);
  return IDOK;
}
