#include <malloc.h>

#include "tests/support/block_size.h"

namespace quorvex::tests {

std::size_t BlockSize(void* block) { return malloc_usable_size(block); }

}  // namespace quorvex::tests
