// The bytes of a block of the C library's heap, as many as were asked for or some more.
#ifndef QUORVEX_TESTS_SUPPORT_BLOCK_SIZE_H_
#define QUORVEX_TESTS_SUPPORT_BLOCK_SIZE_H_

#include <cstddef>

namespace quorvex::tests {

std::size_t BlockSize(void* block);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_BLOCK_SIZE_H_
