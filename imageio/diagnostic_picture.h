// The pictures that every detection leaves behind: 8-bit BMP files, as Save_Image writes them. A
// picture that cannot be written is skipped in silence: detection never fails for want of a
// diagnostic.
#ifndef QUORVEX_IMAGEIO_DIAGNOSTIC_PICTURE_H_
#define QUORVEX_IMAGEIO_DIAGNOSTIC_PICTURE_H_

namespace quorvex {

// Writes width * height grey bytes under `name`.
void SaveDiagnosticPicture(const unsigned char* pixels, int width, int height, const char* name);

// The same for a picture of which only the first `rows` rows are given, rows * width bytes; the
// others are black.
void SaveTopOfDiagnosticPicture(const unsigned char* pixels, int rows, int width, int height,
                                const char* name);

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_DIAGNOSTIC_PICTURE_H_
