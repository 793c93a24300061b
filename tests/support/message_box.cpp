#include "tests/support/message_box.h"

#include <filesystem>
#include <utility>

#include "platform/mfc.h"

namespace {

std::vector<std::string> messages;

}  // namespace

int AfxMessageBox(LPCTSTR text, UINT, UINT) {
  messages.push_back(std::filesystem::path(text).u8string());  // converts wide texts, too
  return IDOK;
}

namespace quorvex::tests {

std::vector<std::string> TakeMessages() { return std::exchange(messages, {}); }

}  // namespace quorvex::tests
