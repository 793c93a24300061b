// The bytes that an engine for fuzzing hands over, read one after another; zeros after the end.
#ifndef QUORVEX_FUZZ_INPUT_BYTES_H_
#define QUORVEX_FUZZ_INPUT_BYTES_H_

#include <cstddef>
#include <cstdint>

namespace quorvex::fuzz {

class InputBytes {
 public:
  InputBytes(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

  std::size_t Left() const { return size_ - next_; }

  int Byte() { return next_ < size_ ? bytes_[next_++] : 0; }

  // Both ends inclusive; at most 256 values lie between them.
  int Between(int first, int last) { return first + Byte() % (last - first + 1); }

  // In 65,535 steps, both ends inclusive.
  double Real(double first, double last) {
    const int high = Byte();
    return first + (last - first) * static_cast<double>(high * 256 + Byte()) / 65535.0;
  }

  bool OneIn(int count) { return Byte() % count == count - 1; }

 private:
  const std::uint8_t* bytes_;
  std::size_t size_;
  std::size_t next_ = 0;
};

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_INPUT_BYTES_H_
