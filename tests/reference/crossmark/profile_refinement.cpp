#include "tests/reference/crossmark.h"

#include "base/gray_image.h"
#include "base/rounding.h"
#include "crossmark/line_fit.h"
#include "crossmark/patch.h"

namespace quorvex::plain {
namespace {

constexpr int kFirstStation = -50;  // pixels along the line
constexpr int kLastStation = 49;
constexpr int kFirstSample = -10;  // pixels across the line
constexpr int kLastSample = 9;
constexpr int kDarkestAtStart = 300;  // above every grey level

PointF SamplePoint(PointF station, const LineSegment& line, int sample) {
  const float s = static_cast<float>(sample);
  return {station.x + s * line.a, station.y + s * line.b};
}

// Appends the darkest sample across the line at a station, the first of equals, if there is any.
// The station's own y is tested, not the sample's; a sample whose row is off the patch is skipped.
void AppendDarkestSample(const unsigned char* patch, PointF station, const LineSegment& line,
                         PointFList& profile) {
  if (!(station.y >= 0.0f && station.y < static_cast<float>(kPatchSize))) {
    return;
  }
  int darkest = kDarkestAtStart;
  int darkestSample = 0;
  for (int s = kFirstSample; s <= kLastSample; ++s) {
    const PointF sample = SamplePoint(station, line, s);
    const int column = RoundHalfUp(sample.x);
    const int row = RoundHalfUp(sample.y);
    if (!IsInside(column, row, kPatchSize, kPatchSize)) {
      continue;
    }
    const int level = patch[PixelOffset(column, row, kPatchSize)];
    if (level < darkest) {
      darkest = level;
      darkestSample = s;
    }
  }
  if (darkest < kDarkestAtStart) {
    profile.push_back(SamplePoint(station, line, darkestSample));
  }
}

}  // namespace

bool RefineLineByProfile(const unsigned char* patch, float x, float y, LineSegment& line) {
  PointFList profile;
  for (int t = kFirstStation; t <= kLastStation; ++t) {
    const float step = static_cast<float>(t);
    const PointF station{x - step * line.b, y + step * line.a};
    AppendDarkestSample(patch, station, line, profile);
  }
  float unusedAngle = 0.0f;
  FitLine(profile, line.a, line.b, line.c, unusedAngle);
  return true;
}

}  // namespace quorvex::plain
