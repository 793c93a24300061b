// The plain form of the saving of pictures: every picture is put together in memory and written at
// once, also where a later one of the same name replaces it. The library must leave the same files;
// nothing in the library includes this.
#ifndef QUORVEX_TESTS_REFERENCE_IMAGEIO_H_
#define QUORVEX_TESTS_REFERENCE_IMAGEIO_H_

namespace quorvex::plain {

void SaveDiagnosticPicture(const unsigned char* pixels, int width, int height, const char* name);

}  // namespace quorvex::plain

#endif  // QUORVEX_TESTS_REFERENCE_IMAGEIO_H_
