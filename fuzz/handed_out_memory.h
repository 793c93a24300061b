// Memory that the library hands out for the life of the process, of which an engine has none left
// after a million reads.
#ifndef QUORVEX_FUZZ_HANDED_OUT_MEMORY_H_
#define QUORVEX_FUZZ_HANDED_OUT_MEMORY_H_

#include "platform/mfc.h"

namespace quorvex::fuzz {

// Takes the block that the library allocated last, which it must have handed out, and frees it.
class HandedOutMemory {
 public:
  HandedOutMemory();
  ~HandedOutMemory() { GlobalFree(handle_); }
  HandedOutMemory(const HandedOutMemory&) = delete;
  HandedOutMemory& operator=(const HandedOutMemory&) = delete;

 private:
  HGLOBAL handle_;
};

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_HANDED_OUT_MEMORY_H_
