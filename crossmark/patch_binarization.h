// Local binarisation of a patch: strokes become black on white.
#ifndef QUORVEX_CROSSMARK_PATCH_BINARIZATION_H_
#define QUORVEX_CROSSMARK_PATCH_BINARIZATION_H_

namespace quorvex {

// Binarises a 160 x 160 patch into another: 0 where the pixel is darker than the threshold
// m * (1 + k * (s / 40 - 1)), else 255, with mean m and sample deviation s over the 41 x 41 window
// around the pixel, clipped at the patch's edges.
// Method: Sauvola and Pietikainen, 2000; with a dynamic range of 40, not 128.
void SauvolaBinarize(const unsigned char* source, unsigned char* destination, float k);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_PATCH_BINARIZATION_H_
