// What is wrong with an image that a host hands over.
#ifndef QUORVEX_PRECISE_IMAGE_INPUT_H_
#define QUORVEX_PRECISE_IMAGE_INPUT_H_

#include <string>

#include "interface/quorvex_precise.h"

namespace quorvex::precise {

// In words; empty when the image can be read.
std::string WrongInput(const ImageView& image);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_IMAGE_INPUT_H_
