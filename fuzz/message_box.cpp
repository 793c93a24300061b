// The library's message box where an engine runs: nobody looks, and a line each would fill disks.
#include "platform/mfc.h"

int AfxMessageBox(LPCTSTR, UINT, UINT) { return IDOK; }
