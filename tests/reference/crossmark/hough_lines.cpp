#include "tests/reference/crossmark.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "base/gray_image.h"
#include "base/rounding.h"

namespace quorvex::plain {
namespace {

constexpr int kDegrees = 180;
constexpr double kPi = 3.1415926;   // cut short on purpose: the bins depend on it
constexpr int kDistancePerBin = 2;  // pixels
constexpr int kVotesAbove = 30;     // votes that a line must exceed
constexpr int kMergeDegrees = 10;   // lines nearer than this in both are one line
constexpr int kMergeBins = 30;
constexpr std::size_t kLineLimit = 1'000'000;

struct Bin {
  int degree;    // of the line's normal
  int distance;  // index
};

class Accumulator {
 public:
  Accumulator(int width, int height)
      : bins_(TruncateToInt(std::sqrt(static_cast<double>(width) * width +
                                      static_cast<double>(height) * height)) +
              1),
        votes_(static_cast<std::size_t>(kDegrees) * static_cast<std::size_t>(bins_)) {
    for (int degree = 0; degree < kDegrees; ++degree) {
      const double angle = degree * kPi / 180.0;
      cosines_[degree] = static_cast<float>(std::cos(angle));
      sines_[degree] = static_cast<float>(std::sin(angle));
    }
  }

  int Bins() const { return bins_; }

  int DistanceIndex(int x, int y, int degree) const {
    const float distance =
        static_cast<float>(x) * cosines_[degree] + static_cast<float>(y) * sines_[degree];
    return static_cast<int>(distance) / kDistancePerBin + bins_ / 2;
  }

  void Vote(int x, int y) {
    for (int degree = 0; degree < kDegrees; ++degree) {
      ++votes_[Index({degree, DistanceIndex(x, y, degree)})];
    }
  }

  int Votes(Bin bin) const { return votes_[Index(bin)]; }

 private:
  std::size_t Index(Bin bin) const {
    return static_cast<std::size_t>(bin.degree) * static_cast<std::size_t>(bins_) +
           static_cast<std::size_t>(bin.distance);
  }

  int bins_;
  std::vector<int> votes_;
  float cosines_[kDegrees];
  float sines_[kDegrees];
};

// Calls `visit(x, y)` for every stroke pixel, row by row. The last column is left out on purpose.
template <typename Visitor>
void VisitStrokes(const unsigned char* image, int width, int height, int strokeValue,
                  Visitor visit) {
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x <= width - 2; ++x) {
      if (image[PixelOffset(x, y, width)] == strokeValue) {
        visit(x, y);
      }
    }
  }
}

std::vector<Bin> FindCandidates(const Accumulator& accumulator) {
  std::vector<Bin> candidates;
  for (int degree = 0; degree < kDegrees; ++degree) {
    for (int distance = 0; distance < accumulator.Bins(); ++distance) {
      if (accumulator.Votes({degree, distance}) > kVotesAbove) {
        candidates.push_back({degree, distance});
      }
    }
  }
  return candidates;
}

// Takes the strongest candidate (the first of equals) and drops its surroundings, until none is
// left. Degrees do not wrap around: 179 and 0 are far apart.
std::vector<Bin> PickPeaks(const Accumulator& accumulator, std::vector<Bin> candidates) {
  std::vector<Bin> peaks;
  while (!candidates.empty()) {
    const Bin peak = *std::max_element(candidates.begin(), candidates.end(), [&](Bin l, Bin r) {
      return accumulator.Votes(l) < accumulator.Votes(r);
    });
    peaks.push_back(peak);
    const auto isNear = [peak](Bin bin) {
      return std::abs(bin.degree - peak.degree) < kMergeDegrees &&
             std::abs(bin.distance - peak.distance) < kMergeBins;
    };
    candidates.erase(std::remove_if(candidates.begin(), candidates.end(), isNear),
                     candidates.end());
  }
  if (peaks.size() > kLineLimit) {
    peaks.resize(kLineLimit);
  }
  return peaks;
}

}  // namespace

void HoughLines(const unsigned char* image, int width, int height, int strokeValue,
                LineSegmentList& lines) {
  Accumulator accumulator(width, height);
  VisitStrokes(image, width, height, strokeValue, [&](int x, int y) { accumulator.Vote(x, y); });
  const std::vector<Bin> peaks = PickPeaks(accumulator, FindCandidates(accumulator));
  LineSegmentList found(peaks.size());
  VisitStrokes(image, width, height, strokeValue, [&](int x, int y) {
    for (std::size_t i = 0; i < peaks.size(); ++i) {
      if (accumulator.DistanceIndex(x, y, peaks[i].degree) == peaks[i].distance) {
        found[i].points.push_back({static_cast<float>(x), static_cast<float>(y)});
      }
    }
  });
  lines.insert(lines.end(), found.begin(), found.end());
}

}  // namespace quorvex::plain
