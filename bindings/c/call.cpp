#include "bindings/c/call.h"

#include <cstddef>
#include <cstdio>

namespace quorvex::bindings {
namespace {

constexpr std::size_t kDetailSize = 256;  // bytes with the end

thread_local char lastDetail[kDetailSize] = "";

}  // namespace

void SetDetail(const char* detail) noexcept {
  std::snprintf(lastDetail, sizeof lastDetail, "%s", detail);
}

void RequirePointer(const void* pointer, const char* name) {
  if (pointer == nullptr) {
    throw Failure(QUORVEX_ERROR_ARGUMENT, std::string(name) + ": expected a pointer, given NULL");
  }
}

void RequireRange(int value, int least, int most, const char* name) {
  if (value < least || value > most) {
    throw Failure(QUORVEX_ERROR_ARGUMENT,
                  std::string(name) + ": expected " + std::to_string(least) + " to " +
                      std::to_string(most) + ", given " + std::to_string(value));
  }
}

void RequireImage(const quorvex_image* image, int leastSize) {
  RequirePointer(image, "image");
  RequirePointer(image->pixels, "image->pixels");
  if (image->width < leastSize || image->height < leastSize) {
    const std::string least = std::to_string(leastSize);
    throw Failure(QUORVEX_ERROR_SIZE, "image: expected " + least + " x " + least +
                                          " pixels or more, given " + std::to_string(image->width) +
                                          " x " + std::to_string(image->height));
  }
  const std::ptrdiff_t width = image->width;
  if (image->stride < width && image->stride > -width) {
    throw Failure(QUORVEX_ERROR_ARGUMENT, "image->stride: expected " + std::to_string(width) +
                                              " bytes or more, or minus that, given " +
                                              std::to_string(image->stride));
  }
}

}  // namespace quorvex::bindings

const char* quorvex_error_detail(void) { return quorvex::bindings::lastDetail; }

const char* quorvex_error_text(int error) {
  switch (error) {
    case QUORVEX_OK:
      return "no error";
    case QUORVEX_ERROR_ARGUMENT:
      return "an argument is a null pointer or out of its range";
    case QUORVEX_ERROR_SIZE:
      return "the image has a size that is not taken";
    case QUORVEX_ERROR_NO_TARGET:
      return "no target was found in the image";
    case QUORVEX_ERROR_NO_POINT:
      return "the list has no such point";
    case QUORVEX_ERROR_NO_GRID:
      return "the points are not the grid that they are to be numbered as";
    case QUORVEX_ERROR_FILE:
      return "a file cannot be opened, read or written";
    case QUORVEX_ERROR_FORMAT:
      return "a file is not of the format that is read";
    case QUORVEX_ERROR_MEMORY:
      return "memory ran out";
    case QUORVEX_ERROR_INTERNAL:
      return "a defect of the library";
  }
  return "no code of this library";
}

const char* quorvex_version(void) { return QUORVEX_VERSION; }
