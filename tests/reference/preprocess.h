// The plain, literal forms of the image stages. What they do and what their arguments are is said
// where the library declares the functions of the same names; the library's faster forms must give
// the same bytes. Nothing in the library includes this.
//
// Calls between plain stages name their namespace: the arguments' types are the library's own, so
// that a bare name would find the library's function as well.
#ifndef QUORVEX_TESTS_REFERENCE_PREPROCESS_H_
#define QUORVEX_TESTS_REFERENCE_PREPROCESS_H_

#include "base/gray_image.h"
#include "base/pixel_position.h"
#include "base/pixel_span.h"
#include "preprocess/outline.h"

namespace quorvex::plain {

bool BinarizeImage(unsigned char* image, int width, int height, unsigned char level);

bool RankFilter3x3(unsigned char* image, int width, int height, int unused);

bool DilateImage(unsigned char* image, int width, int height, int unused, const int* element);

PixelPosition ImageCentre(int width, int height);
PixelPosition RayOffset(int radius, double cosine, double sine);
bool TraceTargetOutline(const unsigned char* image, int width, int height, OutlineList& outline);

bool MarkOutsideRegion(unsigned char* image, int width, int height);

GrayImage MakeTargetMask(const GrayImage& working);
GrayImage MakeTargetRegion(const unsigned char* input, const GrayImage& working);

PixelSpanList ComputeRowSpans(const unsigned char* mask, int width, int height);
PixelSpanList ComputeColumnSpans(const unsigned char* mask, int width, int height);

bool SobelEdges(unsigned char* image, int width, int height);

bool EraseOutlineEdges(unsigned char* image, int width, int height, OutlineList& outline);

bool RemoveLargeComponents(unsigned char* image, int width, int height);

}  // namespace quorvex::plain

#endif  // QUORVEX_TESTS_REFERENCE_PREPROCESS_H_
