// Must be refused: texts of MFC are wide.
#include "platform/mfc.h"

void Tell() { AfxMessageBox("a text", MB_OK); }
