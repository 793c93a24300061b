#include "tests/support/message_box.h"

#include <utility>

#include "platform/mfc.h"

namespace {

std::vector<std::string> messages;

}  // namespace

int AfxMessageBox(LPCTSTR text, UINT, UINT) {
  messages.emplace_back(text);
  return IDOK;
}

namespace quorvex::testing {

std::vector<std::string> TakeMessages() { return std::exchange(messages, {}); }

}  // namespace quorvex::testing
