#include "tests/reference/crossmark.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "crossmark/line_fit.h"
#include "tests/reference/base/bubble_sort.h"

namespace quorvex::plain {
namespace {

constexpr double kLargestGap = 10.0;     // pixels between neighbours of one run
constexpr double kLengthAbove = 30.0;    // pixels that a run must exceed
constexpr std::size_t kPointsAbove = 2;  // points that a segment must exceed

double Distance(PointF from, PointF to) {
  const float dx = to.x - from.x;
  const float dy = to.y - from.y;
  return std::sqrt(static_cast<double>(dx * dx + dy * dy));
}

PointF Centroid(const PointFList& points) {
  double sumX = 0.0;
  double sumY = 0.0;
  for (const PointF& point : points) {
    sumX += static_cast<double>(point.x);
    sumY += static_cast<double>(point.y);
  }
  const double count = static_cast<double>(points.size());
  return {static_cast<float>(sumX / count), static_cast<float>(sumY / count)};
}

// The points in the frame of the line: u along it, v across it, from the centroid.
PointFList RotateIntoLine(const PointFList& points, float angle, PointF centroid) {
  const double cosine = std::cos(static_cast<double>(angle));
  const double sine = std::sin(static_cast<double>(angle));
  PointFList rotated;
  for (const PointF& point : points) {
    const double dx = static_cast<double>(point.x) - static_cast<double>(centroid.x);
    const double dy = static_cast<double>(point.y) - static_cast<double>(centroid.y);
    rotated.push_back(
        {static_cast<float>(cosine * dx + sine * dy), static_cast<float>(cosine * dy - sine * dx)});
  }
  return rotated;
}

// The index behind the last point of the run that starts at `begin`.
std::size_t RunEnd(const PointFList& sorted, std::size_t begin) {
  std::size_t end = begin + 1;
  while (end < sorted.size() && Distance(sorted[end - 1], sorted[end]) <= kLargestGap) {
    ++end;
  }
  return end;
}

// Appends the long runs of one line; `line` carries its fit, `sorted` its points along the line.
void AppendLongRuns(const LineSegment& line, const PointFList& sorted, PointF centroid,
                    LineSegmentList& segments) {
  for (std::size_t begin = 0; begin < sorted.size();) {
    const std::size_t end = RunEnd(sorted, begin);
    if (Distance(sorted[begin], sorted[end - 1]) > kLengthAbove) {
      const PointFList run(sorted.begin() + static_cast<std::ptrdiff_t>(begin),
                           sorted.begin() + static_cast<std::ptrdiff_t>(end));
      LineSegment segment = line;
      plain::RotatePointsBack(run, -line.angle, centroid.x, centroid.y, segment.points);
      if (segment.points.size() > kPointsAbove) {
        segment.start = segment.points.front();
        segment.end = segment.points.back();
        segments.push_back(segment);
      }
    }
    begin = end;
  }
}

}  // namespace

void SortPointsByU(PointFList points, PointF* sorted) {
  BubbleSort(points, [](PointF earlier, PointF later) { return earlier.x > later.x; });
  std::copy(points.begin(), points.end(), sorted);
}

void RotatePointsBack(PointFList points, float angle, float x0, float y0, PointFList& output) {
  const double cosine = std::cos(static_cast<double>(angle));
  const double sine = std::sin(static_cast<double>(angle));
  for (const PointF& point : points) {
    const double u = static_cast<double>(point.x);
    const double v = static_cast<double>(point.y);
    output.push_back({static_cast<float>(cosine * u + sine * v + static_cast<double>(x0)),
                      static_cast<float>(cosine * v - sine * u + static_cast<double>(y0))});
  }
}

void SplitLineSegments(LineSegmentList lines, LineSegmentList& segments) {
  for (const LineSegment& line : lines) {
    LineSegment fitted;
    if (!FitLine(line.points, fitted.a, fitted.b, fitted.c, fitted.angle)) {
      continue;  // a single point has no run of any length
    }
    const PointF centroid = Centroid(line.points);
    const PointFList rotated = RotateIntoLine(line.points, fitted.angle, centroid);
    PointFList sorted(rotated.size());
    plain::SortPointsByU(rotated, sorted.data());
    AppendLongRuns(fitted, sorted, centroid, segments);
  }
}

}  // namespace quorvex::plain
