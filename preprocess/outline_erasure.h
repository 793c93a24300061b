// Wiping of the strong edge that the target's own border leaves in the edge image.
#ifndef QUORVEX_PREPROCESS_OUTLINE_ERASURE_H_
#define QUORVEX_PREPROCESS_OUTLINE_ERASURE_H_

#include "preprocess/outline.h"

namespace quorvex {

// Sets to 0 the columns x - 10 to x + 9 and rows y - 10 to y + 9 around every outline point, as far
// as they lie inside the image (rows of exactly width bytes). Takes the list over: it is left
// empty, its storage released. Always true.
bool EraseOutlineEdges(unsigned char* image, int width, int height, OutlineList& outline);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_OUTLINE_ERASURE_H_
