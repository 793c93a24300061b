// BMP files: 8-, 24- and 32-bit uncompressed Windows bitmaps, written and read through the
// platform's file class.
#ifndef QUORVEX_IMAGEIO_BMP_FILE_H_
#define QUORVEX_IMAGEIO_BMP_FILE_H_

namespace quorvex {

// Writes `pixels`, tightly packed rows of width pixels, as a BMP file under `path`, replacing an
// existing file. Row 0 becomes the bottom row of the picture. The rows are copied in one piece,
// without row padding, so that they match the file's rows only where a row is a multiple of 4
// bytes. Returns false when the size cannot be stored in a BMP file or the file cannot be created;
// a failing write raises CFileException*.
bool Save_Image(const unsigned char* pixels, long width, long height, int bitsPerPixel,
                const char* path);

// Reads a BMP file. On success `pixels` points at the first stored row, inside a block that is
// handed over and never released by the library; rows are bottom-up and padded to 4 bytes. Width,
// height and depth are those of the header, the pixel area is not checked against them. Returns
// false, the results untouched, when the file cannot be opened for reading and writing (a read-only
// file deliberately counts as unreadable), is no BMP file, or ends before a header field that has
// to be read or before the position of the pixels.
bool Read_Image(unsigned char*& pixels, long& width, long& height, int& bitsPerPixel,
                const char* path);

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_BMP_FILE_H_
