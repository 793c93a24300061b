// The library's application object, as the host's framework expects one of every such library.
#ifndef QUORVEX_INTERFACE_QUORVEX_APP_H_
#define QUORVEX_INTERFACE_QUORVEX_APP_H_

#include "platform/mfc.h"

class CQuorvexApp : public CWinApp {};

#endif  // QUORVEX_INTERFACE_QUORVEX_APP_H_
