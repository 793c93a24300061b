#include "crossmark/cross_mark_search.h"

#include <memory>

#include "crossmark/brightest_window.h"
#include "crossmark/image_patch.h"

namespace quorvex {
namespace {

constexpr int kSearchPatchSize = 200;   // pixels, whatever the search size
constexpr int kSearchPatchReach = 100;  // pixels
constexpr int kStroke = 255;

}  // namespace

CrossMarkSearch::CrossMarkSearch(const GrayView& image, MarkPictures& pictures)
    : image_(image), pictures_(pictures), hough_(kSearchPatchSize, kSearchPatchSize) {}

const CrossMark* CrossMarkSearch::Locate(int x, int y, int searchSize) {
  // Where nothing bright is found, the given position serves.
  int brightX = x;
  int brightY = y;
  FindBrightestWindow(image_.pixels, image_.width, image_.height, x, y, searchSize, searchSize,
                      brightX, brightY);
  const int x0 = PatchOrigin(brightX, kSearchPatchReach);
  const int y0 = PatchOrigin(brightY, kSearchPatchReach);
  const StrokePatch patch{
      std::make_shared<const GrayImage>(
          CutPatch(image_.pixels, image_.width, image_.height, x0, y0, kSearchPatchSize)),
      kStroke, image_.width, image_.height};
  pictures_.ShowRegion(patch.pixels);

  auto known = examined_.find({x0, y0});
  if (known == examined_.end()) {
    known = examined_.emplace(std::make_pair(x0, y0), Examine(patch, x0, y0)).first;
  }
  const Examination& examination = known->second;
  ShowStrokes(patch, examination.finding, pictures_);
  return examination.finding == StrokeFinding::kCross ? &examination.mark : nullptr;
}

CrossMarkSearch::Examination CrossMarkSearch::Examine(const StrokePatch& patch, int x0, int y0) {
  CrossStrokes strokes;
  Examination examination;
  examination.finding = FindCrossStrokes(patch, hough_, strokes);
  if (examination.finding == StrokeFinding::kCross) {
    examination.mark.centre = {strokes.crossing.x + static_cast<float>(x0),
                               strokes.crossing.y + static_cast<float>(y0)};
    examination.mark.firstLine = std::move(strokes.first);
    examination.mark.secondLine = std::move(strokes.second);
  }
  return examination;
}

}  // namespace quorvex
