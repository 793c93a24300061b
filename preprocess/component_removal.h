// Removal of white components of the edge image that are too large to be a cross mark.
#ifndef QUORVEX_PREPROCESS_COMPONENT_REMOVAL_H_
#define QUORVEX_PREPROCESS_COMPONENT_REMOVAL_H_

namespace quorvex {

// Sets to 0 every 8-connected component of pixels of value 255 that is wider or taller than 400
// pixels or holds more than 5,000; the components that stay are set to 128. Other values are left
// alone. Always true.
bool RemoveLargeComponents(unsigned char* image, int width, int height);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_COMPONENT_REMOVAL_H_
