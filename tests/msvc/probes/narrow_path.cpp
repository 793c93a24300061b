// Must be refused: file names of MFC are wide.
#include "platform/mfc.h"

bool IsThere(const char* path) {
  CFile file;
  return file.Open(path, CFile::modeRead) != FALSE;
}
