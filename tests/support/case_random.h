// The numbers of a case: those of a seed, or first those that bytes spell.
#ifndef QUORVEX_TESTS_SUPPORT_CASE_RANDOM_H_
#define QUORVEX_TESTS_SUPPORT_CASE_RANDOM_H_

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <random>

namespace quorvex::tests {

// The standard settles the numbers of mt19937, but not those of its distributions.
class CaseRandom {
 public:
  explicit CaseRandom(std::uint32_t seed) : engine_(seed) {}

  // The bytes, which stay the caller's, decide as far as they reach: one a number where that is
  // enough, so that a changed byte is a changed choice.
  CaseRandom(std::uint32_t seed, const std::uint8_t* bytes, std::size_t size)
      : engine_(seed), bytes_(bytes), left_(size) {}

  std::uint32_t Next() { return Number(4); }

  // 0 to count - 1.
  int Below(int count) {
    const int bytes = count <= 0x100 ? 1 : count <= 0x10000 ? 2 : 4;
    return static_cast<int>(Number(bytes) % static_cast<std::uint32_t>(count));
  }

  // Both ends inclusive.
  int Between(int first, int last) { return first + Below(last - first + 1); }

  bool OneIn(int count) { return Below(count) == 0; }

  template <typename T>
  T OneOf(std::initializer_list<T> values) {
    return *std::next(values.begin(), Below(static_cast<int>(values.size())));
  }

  // A multiple of 2^-10, both ends inclusive.
  float Fraction(int first, int last) {
    return static_cast<float>(Between(first * 1024, last * 1024)) / 1024.0f;
  }

 private:
  // Of so many bytes, the highest first; of 32 bits when it is the seed's.
  std::uint32_t Number(int bytes) {
    if (left_ == 0) {
      return static_cast<std::uint32_t>(engine_());
    }
    std::uint32_t number = 0;
    for (; bytes > 0 && left_ > 0; --bytes) {
      number = number << 8 | *bytes_++;
      --left_;
    }
    return number;
  }

  std::mt19937 engine_;
  const std::uint8_t* bytes_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_CASE_RANDOM_H_
