// FNV-1a, 64 bits: tells one run of bytes from another.
#ifndef QUORVEX_TESTS_SUPPORT_FNV_HASH_H_
#define QUORVEX_TESTS_SUPPORT_FNV_HASH_H_

#include <cstdint>

namespace quorvex::tests {

// Of a string, or of a list of bytes.
template <typename Bytes>
std::uint64_t FnvHash(const Bytes& bytes) {
  std::uint64_t hash = 0xcbf29ce484222325u;
  for (const auto byte : bytes) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
  }
  return hash;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_FNV_HASH_H_
