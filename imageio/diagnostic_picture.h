// The pictures that every detection leaves behind.
#ifndef QUORVEX_IMAGEIO_DIAGNOSTIC_PICTURE_H_
#define QUORVEX_IMAGEIO_DIAGNOSTIC_PICTURE_H_

namespace quorvex {

// Writes width * height grey bytes as an 8-bit BMP file under `name`. A picture that cannot be
// written is skipped in silence: detection never fails for want of a diagnostic.
void SaveDiagnosticPicture(const unsigned char* pixels, int width, int height, const char* name);

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_DIAGNOSTIC_PICTURE_H_
