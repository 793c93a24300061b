#include "crossmark/cross_strokes.h"

#include <cstddef>
#include <utility>

#include "crossmark/cross_lines.h"
#include "crossmark/line_intersection.h"
#include "crossmark/line_splitting.h"

namespace quorvex {
namespace {

// The two strokes among the segments found so far.
struct Choice {
  bool isComplete = false;
  std::size_t first = 0;
  std::size_t second = 0;
};

// A segment has no more points than its line has votes, and among equals the earlier one is chosen.
// So lines of no more votes than the second stroke has points change nothing.
bool IsFinal(const Choice& choice, const LineSegmentList& segments, int votes) {
  return choice.isComplete &&
         static_cast<std::size_t>(votes) <= segments[choice.second].points.size();
}

}  // namespace

StrokeFinding FindCrossStrokes(const StrokePatch& patch, HoughTransform& hough,
                               CrossStrokes& strokes) {
  hough.Vote(patch.pixels->Data(), patch.strokeValue);
  HoughBin line;
  if (!hough.NextLine(line)) {
    return StrokeFinding::kNothing;
  }
  LineSegmentList segments;
  Choice choice;
  do {
    SplitLine(hough.Collect(line), segments);
    if (!segments.empty()) {
      choice.isComplete = ChooseCrossLines(segments, choice.first, choice.second);
    }
  } while (hough.NextLine(line) && !IsFinal(choice, segments, line.votes));
  if (segments.empty()) {
    return StrokeFinding::kLines;
  }
  if (!choice.isComplete) {
    return StrokeFinding::kSegments;
  }
  strokes.first = std::move(segments[choice.first]);
  strokes.second = std::move(segments[choice.second]);
  return IntersectLines(strokes.first, strokes.second, strokes.crossing.x, strokes.crossing.y)
             ? StrokeFinding::kCross
             : StrokeFinding::kSegments;
}

void ShowStrokes(const StrokePatch& patch, StrokeFinding finding, MarkPictures& pictures) {
  if (finding != StrokeFinding::kNothing) {
    pictures.ShowLines(patch);
  }
  if (finding == StrokeFinding::kSegments || finding == StrokeFinding::kCross) {
    pictures.ShowSegments(patch);
  }
}

}  // namespace quorvex
