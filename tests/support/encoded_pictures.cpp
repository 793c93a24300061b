#include "tests/support/encoded_pictures.h"

#include <cstdio>
#include <cstdlib>

#ifdef QUORVEX_HAS_JPEG
#include <jpeglib.h>
#endif
#ifdef QUORVEX_HAS_TIFF
#include <tiffio.h>
#endif

#include "tests/support/temporary_folder.h"

namespace quorvex::tests {

#ifdef QUORVEX_HAS_JPEG

namespace {

// The mean of every block, then every other coefficient but for its last bit, then the last bits.
std::vector<jpeg_scan_info> ManyScans(int count) {
  constexpr int kCoefficients = 63;
  std::vector<jpeg_scan_info> scans(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const int coefficient = i == 0 ? 0 : (i - 1) % kCoefficients + 1;
    const bool isLastBit = i > kCoefficients;
    scans[static_cast<std::size_t>(i)] = {
        1, {0}, coefficient, coefficient, isLastBit ? 1 : 0, i == 0 || isLastBit ? 0 : 1};
  }
  return scans;
}

}  // namespace

Bytes EncodeJpeg(const JpegFields& fields) {
  const std::vector<jpeg_scan_info> scans = ManyScans(fields.scans);
  jpeg_compress_struct state;
  jpeg_error_mgr errors;
  state.err = jpeg_std_error(&errors);
  jpeg_create_compress(&state);
  unsigned char* memory = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&state, &memory, &size);
  state.image_width = static_cast<JDIMENSION>(fields.width);
  state.image_height = static_cast<JDIMENSION>(fields.height);
  state.input_components = fields.channels;
  state.in_color_space = fields.channels == 1   ? JCS_GRAYSCALE
                         : fields.channels == 3 ? JCS_RGB
                                                : JCS_CMYK;
  jpeg_set_defaults(&state);
  jpeg_set_quality(&state, 100, TRUE);
  if (fields.isProgressive) jpeg_simple_progression(&state);
  if (fields.scans > 0) {
    state.scan_info = scans.data();
    state.num_scans = fields.scans;
  }
  jpeg_start_compress(&state, TRUE);
  if (fields.orientation != 0) {
    const Bytes exif = {'E', 'x',
                        'i', 'f',
                        0,   0,
                        'M', 'M',
                        0,   42,
                        0,   0,
                        0,   8,
                        0,   1,
                        1,   0x12,
                        0,   3,
                        0,   0,
                        0,   1,
                        0,   static_cast<std::uint8_t>(fields.orientation),
                        0,   0,
                        0,   0,
                        0,   0};
    jpeg_write_marker(&state, JPEG_APP0 + 1, exif.data(), static_cast<unsigned>(exif.size()));
  }
  const std::size_t rowBytes =
      static_cast<std::size_t>(fields.width) * static_cast<std::size_t>(fields.channels);
  for (std::size_t y = 0; y < static_cast<std::size_t>(fields.height); ++y) {
    JSAMPROW row = const_cast<JSAMPROW>(fields.samples.data() + y * rowBytes);
    jpeg_write_scanlines(&state, &row, 1);
  }
  jpeg_finish_compress(&state);
  jpeg_destroy_compress(&state);
  const Bytes bytes(memory, memory + size);
  std::free(memory);
  return bytes;
}

#else

Bytes EncodeJpeg(const JpegFields&) { return {}; }

#endif

#ifdef QUORVEX_HAS_TIFF

namespace {

void WritePreview(TIFF* file) {
  TIFFSetField(file, TIFFTAG_SUBFILETYPE, FILETYPE_REDUCEDIMAGE);
  TIFFSetField(file, TIFFTAG_IMAGEWIDTH, 1);
  TIFFSetField(file, TIFFTAG_IMAGELENGTH, 1);
  TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
  TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
  char pixel = 99;
  TIFFWriteScanline(file, &pixel, 0, 0);
  TIFFWriteDirectory(file);
}

void WritePage(TIFF* file, const TiffFields& fields) {
  TIFFSetField(file, TIFFTAG_IMAGEWIDTH, fields.width);
  TIFFSetField(file, TIFFTAG_IMAGELENGTH, fields.height);
  TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, fields.bits);
  TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, fields.channels);
  TIFFSetField(file, TIFFTAG_PHOTOMETRIC, fields.photometric);
  TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, fields.sampleFormat);
  TIFFSetField(file, TIFFTAG_COMPRESSION, fields.compression);
  TIFFSetField(file, TIFFTAG_PLANARCONFIG,
               fields.hasPlanes ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
  if (fields.orientation != 0) TIFFSetField(file, TIFFTAG_ORIENTATION, fields.orientation);
  Bytes samples = fields.samples;
  if (fields.isTiled) {
    TIFFSetField(file, TIFFTAG_TILEWIDTH, 16);
    TIFFSetField(file, TIFFTAG_TILELENGTH, 16);
    samples.resize(static_cast<std::size_t>(TIFFTileSize(file)));
    TIFFWriteTile(file, samples.data(), 0, 0, 0, 0);
  } else {
    // JPEG takes multiples of 8.
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, fields.compression == COMPRESSION_JPEG ? 16 : 2);
    const std::size_t rowBytes = static_cast<std::size_t>(TIFFScanlineSize(file));
    samples.resize(rowBytes * fields.height);
    for (std::uint32_t y = 0; y < fields.height; ++y) {
      Bytes row(samples.begin() + static_cast<std::ptrdiff_t>(y * rowBytes),
                samples.begin() + static_cast<std::ptrdiff_t>((y + 1) * rowBytes));
      TIFFWriteScanline(file, row.data(), y, 0);
    }
  }
  TIFFWriteDirectory(file);
}

}  // namespace

Bytes EncodeTiff(const TiffFields& fields, const std::string& path) {
  TIFF* file = TIFFOpen(path.c_str(), "w");
  for (int preview = 0; preview < fields.previews; ++preview) WritePreview(file);
  for (int page = 0; page < fields.pages; ++page) WritePage(file, fields);
  TIFFClose(file);
  return ReadBytes(path);
}

bool WritesTiffOfJpeg() { return TIFFIsCODECConfigured(COMPRESSION_JPEG) == 1; }

#else

bool WritesTiffOfJpeg() { return false; }

Bytes EncodeTiff(const TiffFields&, const std::string&) { return {}; }

#endif

}  // namespace quorvex::tests
