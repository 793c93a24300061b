// Zero-filled scratch memory from the process's local heap, locked for as long as the buffer lives.
#ifndef QUORVEX_BASE_LOCAL_BUFFER_H_
#define QUORVEX_BASE_LOCAL_BUFFER_H_

#include <cstddef>

#include "platform/mfc.h"

namespace quorvex {

class LocalBuffer {
 public:
  // Check IsValid before use: the heap may refuse.
  explicit LocalBuffer(std::size_t size) : handle_(LocalAlloc(LHND, size)) {
    if (handle_ != nullptr) {
      data_ = static_cast<unsigned char*>(LocalLock(handle_));
    }
  }

  ~LocalBuffer() {
    if (data_ != nullptr) {
      LocalUnlock(handle_);
    }
    if (handle_ != nullptr) {
      LocalFree(handle_);
    }
  }

  LocalBuffer(const LocalBuffer&) = delete;
  LocalBuffer& operator=(const LocalBuffer&) = delete;

  bool IsValid() const { return data_ != nullptr; }
  unsigned char* Data() { return data_; }
  const unsigned char* Data() const { return data_; }

 private:
  HLOCAL handle_;
  unsigned char* data_ = nullptr;
};

}  // namespace quorvex

#endif  // QUORVEX_BASE_LOCAL_BUFFER_H_
