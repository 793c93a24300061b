// Must be refused there, though not on 64-bit Linux: long loses the upper half.
#include <cstddef>

long Offset(std::ptrdiff_t offset) { return offset; }
