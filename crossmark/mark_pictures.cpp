#include "crossmark/mark_pictures.h"

#include "crossmark/hough_lines.h"
#include "crossmark/line_picture.h"
#include "crossmark/line_splitting.h"
#include "imageio/diagnostic_picture.h"

namespace quorvex {
namespace {

void WritePatch(const SharedPatch& patch, const char* name) {
  if (patch != nullptr) {
    SaveDiagnosticPicture(patch->Data(), patch->Width(), patch->Height(), name);
  }
}

// The lines of a patch are found once more: that costs less than keeping those of every patch.
LineSegmentList FindLines(const StrokePatch& patch) {
  LineSegmentList lines;
  HoughLines(patch.pixels->Data(), patch.pixels->Width(), patch.pixels->Height(), patch.strokeValue,
             lines);
  return lines;
}

void WriteLines(const StrokePatch& patch) {
  if (patch.pixels != nullptr) {
    SaveLinePicture(FindLines(patch), patch.pictureWidth, patch.pictureHeight, "./Lines.bmp");
  }
}

void WriteSegments(const StrokePatch& patch) {
  if (patch.pixels != nullptr) {
    LineSegmentList segments;
    SplitLineSegments(FindLines(patch), segments);
    SaveLinePicture(segments, patch.pictureWidth, patch.pictureHeight, "./LineSegment.bmp");
  }
}

}  // namespace

MarkPictures::~MarkPictures() {
  try {
    WritePatch(region_, "./CrossMarkRegion.bmp");
    WritePatch(binarized_, "./Sauvola.bmp");
    WritePatch(thinned_, "./Thining.bmp");
    WriteLines(lines_);
    WriteSegments(segments_);
  } catch (...) {
    // Without memory, which MFC tells by an exception of its own, there are fewer pictures, and the
    // call ends as it would have.
  }
}

}  // namespace quorvex
