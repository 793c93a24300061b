// The pictures of the mark that was examined last. Every examination of a call leaves them under
// the same names; so only what each shows last is remembered, and drawn and written at the end.
#ifndef QUORVEX_CROSSMARK_MARK_PICTURES_H_
#define QUORVEX_CROSSMARK_MARK_PICTURES_H_

#include <memory>
#include <utility>

#include "base/gray_image.h"

namespace quorvex {

using SharedPatch = std::shared_ptr<const GrayImage>;

// The square patch on which lines are looked for, and the size of the pictures that show them.
struct StrokePatch {
  SharedPatch pixels;
  int strokeValue = 0;   // grey level of a stroke pixel
  int pictureWidth = 0;  // pixels
  int pictureHeight = 0;
};

class MarkPictures {
 public:
  MarkPictures() = default;
  // Writes "./CrossMarkRegion.bmp", "./Sauvola.bmp", "./Thining.bmp", "./Lines.bmp" and
  // "./LineSegment.bmp", as many of them as there is something to show. What cannot be drawn or
  // written is skipped.
  ~MarkPictures();
  MarkPictures(const MarkPictures&) = delete;
  MarkPictures& operator=(const MarkPictures&) = delete;

  void ShowRegion(SharedPatch patch) { region_ = std::move(patch); }
  void ShowBinarized(SharedPatch patch) { binarized_ = std::move(patch); }
  void ShowThinned(SharedPatch patch) { thinned_ = std::move(patch); }
  void ShowLines(const StrokePatch& patch) { lines_ = patch; }
  void ShowSegments(const StrokePatch& patch) { segments_ = patch; }

 private:
  SharedPatch region_;
  SharedPatch binarized_;
  SharedPatch thinned_;
  StrokePatch lines_;
  StrokePatch segments_;
};

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_MARK_PICTURES_H_
