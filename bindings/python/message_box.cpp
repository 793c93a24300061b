// The module asks first what the library would tell an operator, so no message is ever shown.
#include "platform/mfc.h"

int AfxMessageBox(LPCTSTR, UINT, UINT) { return IDOK; }
