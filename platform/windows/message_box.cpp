#include "platform/mfc_subset.h"

namespace {

constexpr wchar_t kCaption[] = L"quorvex";

}  // namespace

int AfxMessageBox(LPCTSTR text, UINT type, UINT) {
  // As MFC's own box: an exclamation mark where no icon is asked for.
  if ((type & MB_ICONMASK) == 0) {
    type |= MB_ICONEXCLAMATION;
  }
  const HWND owner = GetActiveWindow();
  // Without an owner the host's windows would stay open to the operator behind the box.
  if (owner == nullptr) {
    type |= MB_TASKMODAL;
  }
  return MessageBoxW(owner, text, kCaption, type);
}
