#include "benchmarks/stage_inputs.h"

#include <algorithm>
#include <stdexcept>

#include "base/rounding.h"
#include "benchmarks/rendered_input.h"
#include "crossmark/image_patch.h"
#include "crossmark/patch.h"
#include "crossmark/patch_binarization.h"
#include "grid/centre_cross_pass.h"
#include "grid/dominant_group.h"
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
#include "tests/road/detection_road.h"
#include "tests/support/temporary_directory.h"
#include "tools/render/presets.h"

namespace quorvex::benchmarks {
StageInputs::StageInputs(const std::string& preset)
    : input(RenderInput(tools::PresetByName(preset))),
      width(input.Width()),
      height(input.Height()),
      binarized(input) {
  BinarizeImage(binarized.Data(), width, height, 80);
  filtered = binarized;
  RankFilter3x3(filtered.Data(), width, height, 0);
  BinarizeImage(filtered.Data(), width, height, 50);
  dilated = filtered;
  DilateImage(dilated.Data(), width, height, 0, kDilationElement);
  TraceTargetOutline(dilated.Data(), width, height, outline);
  const PixelPosition centre = ImageCentre(width, height);
  FilterOutlinePoints(outline, centre.x, centre.y);
  contour = GrayImage(width, height);
  DrawOutline(contour.Data(), width, height, outline);
  marked = contour;
  MarkOutsideRegion(marked.Data(), width, height);
  mask = MakeTargetMask(marked);
  region = MakeTargetRegion(input.Data(), marked);
  rowSpans = ComputeRowSpans(mask.Data(), width, height);
  columnSpans = ComputeColumnSpans(mask.Data(), width, height);
  edges = region;
  SobelEdges(edges.Data(), width, height);
  BinarizeImage(edges.Data(), width, height, 20);
  erased = edges;
  OutlineList consumed = outline;
  EraseOutlineEdges(erased.Data(), width, height, consumed);
  strokes = erased;
  RemoveLargeComponents(strokes.Data(), width, height);
  BinarizeImage(strokes.Data(), width, height, 40);

  const tests::TemporaryDirectory directory;
  BuildGridFromCentreCross(strokes.Data(), width, height, tests::kRowSpan, 0, tests::kRowSteps,
                           rowSpans, columnSpans, firstGrid);
  if (firstGrid.empty()) {
    throw std::runtime_error("no target was found");
  }
  SelectDominantGroup(firstGrid, seeds);
  markX = TruncateToInt(firstGrid.front().x);
  markY = TruncateToInt(firstGrid.front().y);
  constexpr int kStrokePatchSize = 200;  // pixels
  strokePatch = CutPatch(strokes.Data(), width, height, PatchOrigin(markX, kStrokePatchSize / 2),
                         PatchOrigin(markY, kStrokePatchSize / 2), kStrokePatchSize);
  greyPatch = CutPatch(input.Data(), width, height, PatchOrigin(markX, kPatchReach),
                       PatchOrigin(markY, kPatchReach), kPatchSize);
  binaryPatch = greyPatch;
  SauvolaBinarize(greyPatch.Data(), binaryPatch.Data(), 0.06f);
}

}  // namespace quorvex::benchmarks
