#include "interface/stroke_image.h"

#include "imageio/diagnostic_picture.h"
#include "preprocess/binarize.h"
#include "preprocess/component_removal.h"
#include "preprocess/dilation.h"
#include "preprocess/mask_spans.h"
#include "preprocess/outline_drawing.h"
#include "preprocess/outline_erasure.h"
#include "preprocess/outline_filter.h"
#include "preprocess/outline_tracing.h"
#include "preprocess/outside_region.h"
#include "preprocess/rank_filter.h"
#include "preprocess/sobel_edges.h"
#include "preprocess/target_mask.h"

namespace quorvex {
namespace {

constexpr unsigned char kTargetLevel = 80;     // grey level; below is background or stroke
constexpr unsigned char kFilteredLevel = 50;   // after the rank filter
constexpr unsigned char kEdgeLevel = 20;       // gradient that counts as an edge
constexpr unsigned char kComponentLevel = 40;  // below the mark of components that stay
constexpr int kDilationElement[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1};

void Save(const GrayImage& image, const char* name) {
  SaveDiagnosticPicture(image.Data(), image.Width(), image.Height(), name);
}

}  // namespace

StrokeImage MakeStrokeImage(const unsigned char* input, int width, int height) {
  // The results of the image stages are not asked: a stage that cannot do its work leaves its image
  // as it was, and the detection goes on with that.
  GrayImage working(input, width, height);
  BinarizeImage(working.Data(), width, height, kTargetLevel);
  Save(working, "./Binarization.bmp");
  RankFilter3x3(working.Data(), width, height, 0);
  BinarizeImage(working.Data(), width, height, kFilteredLevel);
  DilateImage(working.Data(), width, height, 0, kDilationElement);
  Save(working, "./Dilation.bmp");

  OutlineList outline;
  TraceTargetOutline(working.Data(), width, height, outline);
  const PixelPosition centre = ImageCentre(width, height);
  FilterOutlinePoints(outline, centre.x, centre.y);
  working.Fill(0);
  DrawOutline(working.Data(), width, height, outline);
  Save(working, "./Contour.bmp");
  MarkOutsideRegion(working.Data(), width, height);
  Save(working, "./SRegion.bmp");

  StrokeImage image;
  image.mask = MakeTargetMask(working);
  Save(image.mask, "./Mask.bmp");
  image.strokes = MakeTargetRegion(input, working);
  Save(image.strokes, "./Region.bmp");
  image.rowSpans = ComputeRowSpans(image.mask.Data(), width, height);
  image.columnSpans = ComputeColumnSpans(image.mask.Data(), width, height);

  SobelEdges(image.strokes.Data(), width, height);
  BinarizeImage(image.strokes.Data(), width, height, kEdgeLevel);
  Save(image.strokes, "./Sobel.bmp");
  EraseOutlineEdges(image.strokes.Data(), width, height, outline);
  RemoveLargeComponents(image.strokes.Data(), width, height);
  BinarizeImage(image.strokes.Data(), width, height, kComponentLevel);
  Save(image.strokes, "./Eliminate.bmp");
  return image;
}

}  // namespace quorvex
