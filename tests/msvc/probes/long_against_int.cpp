// Must be refused: both arguments are of one type.
#include <algorithm>

long LargerOf(long left, int right) { return std::max(left, right); }
