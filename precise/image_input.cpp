#include "precise/image_input.h"

namespace quorvex::precise {
namespace {

constexpr int kLeastSize = 16;  // px; smaller pictures hold no four marks

}  // namespace

std::string WrongInput(const ImageView& image) {
  if (image.pixels == nullptr) {
    return "there are no pixels: the pointer is null";
  }
  if (image.width < kLeastSize || image.height < kLeastSize) {
    return "the image is smaller than 16 x 16 pixels";
  }
  if (image.stride < image.width && -image.stride < image.width) {
    return "the stride is smaller than the width";
  }
  return "";
}

}  // namespace quorvex::precise
