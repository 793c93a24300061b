#include "imageio/diagnostic_picture.h"

#include "imageio/bmp_file.h"
#include "platform/mfc.h"

namespace quorvex {

void SaveDiagnosticPicture(const unsigned char* pixels, int width, int height, const char* name) {
  constexpr int kBitsPerPixel = 8;
  try {
    Save_Image(pixels, width, height, kBitsPerPixel, name);
  } catch (CFileException* exception) {
    exception->Delete();
  }
}

}  // namespace quorvex
