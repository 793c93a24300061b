// Must be refused there, though not on 64-bit Linux: unsigned long has 32 bits.
#include <algorithm>
#include <cstddef>

std::size_t LargerOf(std::size_t left, unsigned long right) { return std::max(left, right); }
