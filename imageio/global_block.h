// A zero-filled global memory block, locked for as long as the object lives.
#ifndef QUORVEX_IMAGEIO_GLOBAL_BLOCK_H_
#define QUORVEX_IMAGEIO_GLOBAL_BLOCK_H_

#include <utility>

#include "platform/mfc.h"

namespace quorvex {

class GlobalBlock {
 public:
  GlobalBlock() = default;

  // Check IsValid before use: the memory may not be had.
  explicit GlobalBlock(SIZE_T size) : handle_(GlobalAlloc(GHND, size)) {
    if (handle_ != nullptr) {
      data_ = static_cast<unsigned char*>(GlobalLock(handle_));
    }
  }

  GlobalBlock(const GlobalBlock&) = delete;
  GlobalBlock& operator=(const GlobalBlock&) = delete;

  GlobalBlock& operator=(GlobalBlock&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(data_, other.data_);
    return *this;
  }

  ~GlobalBlock() {
    if (data_ != nullptr) {
      GlobalUnlock(handle_);
    }
    if (handle_ != nullptr) {
      GlobalFree(handle_);
    }
  }

  bool IsValid() const { return data_ != nullptr; }
  unsigned char* Data() { return data_; }

  // Gives the locked memory away for the life of the process.
  unsigned char* HandOver() {
    handle_ = nullptr;
    return std::exchange(data_, nullptr);
  }

 private:
  HGLOBAL handle_ = nullptr;
  unsigned char* data_ = nullptr;
};

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_GLOBAL_BLOCK_H_
