#include "crossmark/hough_votes.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "base/gray_image.h"
#include "base/rounding.h"

namespace quorvex {
namespace {

constexpr int kDegrees = 180;
constexpr double kPi = 3.1415926;   // cut short on purpose: the bins depend on it
constexpr int kDistancePerBin = 2;  // pixels
constexpr std::size_t kStepVoteLimit = std::numeric_limits<std::uint16_t>::max();

// Bins are looked at in blocks of this size, most of which hold nothing of interest.
constexpr int kBlockSize = 16;

std::size_t TableRow(int coordinate) { return static_cast<std::size_t>(coordinate) * kDegrees; }

// Pixels from one corner of the image to the opposite one, rounded up.
int Diagonal(int width, int height) {
  return TruncateToInt(
             std::sqrt(static_cast<double>(width) * width + static_cast<double>(height) * height)) +
         1;
}

// The lowest distance is negative where the normal points to the left.
int FirstStep(int width, float cosine) {
  const float lowest = std::min(static_cast<float>(width) * cosine, 0.0f);
  return static_cast<int>(lowest) / kDistancePerBin * kDistancePerBin -
         (lowest < 0.0f ? kDistancePerBin : 0);
}

int WholeBlocks(int bins) { return (bins + kBlockSize - 1) / kBlockSize * kBlockSize; }

// Each bin is given the votes of two steps.
void AddPairs(const std::uint16_t* __restrict steps, std::ptrdiff_t count, int* __restrict votes) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    votes[i] += steps[kDistancePerBin * i] + steps[kDistancePerBin * i + 1];
  }
}

int LargestOfBlock(const int* votes) {
  int largest = 0;
  for (int i = 0; i < kBlockSize; ++i) {
    largest = std::max(largest, votes[i]);
  }
  return largest;
}

}  // namespace

HoughVotes::HoughVotes(int width, int height)
    : width_(width),
      height_(height),
      // A range begins up to two bins before its first distance and is cut to whole bins.
      bins_(WholeBlocks(Diagonal(width, height) / kDistancePerBin + 4)),
      cosineProducts_(TableRow(std::max(width, 0))),
      sineProducts_(TableRow(std::max(height, 0))),
      firstSteps_(kDegrees),
      rows_(kDegrees),
      stepVotes_(static_cast<std::size_t>(kDegrees) * static_cast<std::size_t>(bins_) *
                 kDistancePerBin),
      votes_(static_cast<std::size_t>(kDegrees) * static_cast<std::size_t>(bins_)),
      mostVotes_(votes_.size() / kBlockSize) {
  for (int degree = 0; degree < kDegrees; ++degree) {
    const std::size_t d = static_cast<std::size_t>(degree);
    const double angle = degree * kPi / 180.0;
    const float cosine = static_cast<float>(std::cos(angle));
    const float sine = static_cast<float>(std::sin(angle));
    for (int x = 0; x < width; ++x) {
      cosineProducts_[TableRow(x) + d] = static_cast<float>(x) * cosine;
    }
    for (int y = 0; y < height; ++y) {
      sineProducts_[TableRow(y) + d] = static_cast<float>(y) * sine;
    }
    firstSteps_[d] = FirstStep(width, cosine);
    rows_[d] = degree * bins_ * kDistancePerBin - firstSteps_[d];
  }
}

// Votes for the whole pixels of distance, for all degrees at once; what DistanceOf does with them
// is done once for all strokes. The tables hold the rounded products, so that no compiler can leave
// the rounding out.
void HoughVotes::Cast(const unsigned char* image, int strokeValue) {
  image_ = image;
  strokeValue_ = strokeValue;
  CollectStrokes();
  std::fill(votes_.begin(), votes_.end(), 0);
  std::uint16_t* votes = stepVotes_.data();
  const int* rows = rows_.data();
  std::size_t untilFull = kStepVoteLimit;
  for (const Stroke& stroke : strokes_) {
    const float* cosines = cosineProducts_.data() + TableRow(stroke.x);
    const float* sines = sineProducts_.data() + TableRow(stroke.y);
    int steps[kDegrees];
    for (int degree = 0; degree < kDegrees; ++degree) {
      steps[degree] = rows[degree] + static_cast<int>(cosines[degree] + sines[degree]);
    }
    for (int degree = 0; degree < kDegrees; degree += 4) {
      ++votes[steps[degree]];
      ++votes[steps[degree + 1]];
      ++votes[steps[degree + 2]];
      ++votes[steps[degree + 3]];
    }
    if (--untilFull == 0) {
      AddStepVotes();
      untilFull = kStepVoteLimit;
    }
  }
  AddStepVotes();
}

// Moves the votes of the steps to their bins. Two steps make a bin, counted from zero to both sides
// as integer division does, so that three of them fall into the one at zero.
void HoughVotes::AddStepVotes() {
  for (int degree = 0; degree < kDegrees; ++degree) {
    const std::size_t row = static_cast<std::size_t>(degree) * static_cast<std::size_t>(bins_);
    std::uint16_t* steps = stepVotes_.data() + row * kDistancePerBin;
    int* votes = votes_.data() + row;
    const std::ptrdiff_t zero = -FirstDistance(degree);
    if (zero > 0) {
      AddPairs(steps + 1, zero - 1, votes + 1);
      votes[zero] += steps[kDistancePerBin * zero - 1];
    }
    AddPairs(steps + kDistancePerBin * zero, bins_ - zero, votes + zero);
    for (int first = 0; first < bins_; first += kBlockSize) {
      mostVotes_[(row + static_cast<std::size_t>(first)) / kBlockSize] =
          LargestOfBlock(votes + first);
    }
    std::fill(steps, steps + kDistancePerBin * std::ptrdiff_t{bins_},
              static_cast<std::uint16_t>(0));
  }
}

int HoughVotes::Most() const { return *std::max_element(mostVotes_.begin(), mostVotes_.end()); }

void HoughVotes::AppendBins(int votesAbove, int largestVotes, std::vector<HoughBin>& bins) const {
  for (std::size_t block = 0; block < mostVotes_.size(); ++block) {
    if (mostVotes_[block] <= votesAbove) {
      continue;
    }
    const int first = static_cast<int>(block * kBlockSize);
    const int degree = first / bins_;
    const int firstDistance = FirstDistance(degree) - degree * bins_;
    for (int bin = first; bin < first + kBlockSize; ++bin) {
      const int votes = votes_[static_cast<std::size_t>(bin)];
      if (votes > votesAbove && votes <= largestVotes) {
        bins.push_back({degree, firstDistance + bin, votes});
      }
    }
  }
}

int HoughVotes::FirstDistance(int degree) const {
  return firstSteps_[static_cast<std::size_t>(degree)] / kDistancePerBin;
}

// The stroke pixels, row by row. The last column is left out on purpose.
void HoughVotes::CollectStrokes() {
  strokes_.clear();
  if (width_ < 2 || strokeValue_ < 0 || strokeValue_ > std::numeric_limits<unsigned char>::max()) {
    return;
  }
  for (int y = 0; y < height_; ++y) {
    const unsigned char* row = image_ + PixelOffset(0, y, width_);
    const unsigned char* end = row + width_ - 1;
    const unsigned char* pixel = row;
    while (pixel < end &&
           (pixel = static_cast<const unsigned char*>(std::memchr(
                pixel, strokeValue_, static_cast<std::size_t>(end - pixel)))) != nullptr) {
      for (; pixel < end && *pixel == strokeValue_; ++pixel) {
        strokes_.push_back({static_cast<int>(pixel - row), y});
      }
    }
  }
}

int HoughVotes::DistanceOf(Stroke stroke, int degree) const {
  const float distance = cosineProducts_[TableRow(stroke.x) + static_cast<std::size_t>(degree)] +
                         sineProducts_[TableRow(stroke.y) + static_cast<std::size_t>(degree)];
  return static_cast<int>(distance) / kDistancePerBin;
}

// In a row the distance grows with x or falls with it, so that the line covers one interval of x;
// from row to row the distance grows, so that the ends of the interval move to one side only.
PointFList HoughVotes::Collect(const HoughBin& bin) const {
  PointFList points;
  points.reserve(static_cast<std::size_t>(bin.votes));
  const bool grows = bin.degree <= kDegrees / 2;
  const int columns = width_ - 1;
  int begin = grows ? columns : 0;
  int end = begin;
  for (int y = 0; y < height_; ++y) {
    if (grows) {
      while (begin > 0 && DistanceOf({begin - 1, y}, bin.degree) >= bin.distance) {
        --begin;
      }
      while (end > 0 && DistanceOf({end - 1, y}, bin.degree) > bin.distance) {
        --end;
      }
    } else {
      while (begin < columns && DistanceOf({begin, y}, bin.degree) > bin.distance) {
        ++begin;
      }
      while (end < columns && DistanceOf({end, y}, bin.degree) >= bin.distance) {
        ++end;
      }
    }
    const unsigned char* row = image_ + PixelOffset(0, y, width_);
    for (int x = begin; x < end; ++x) {
      if (row[x] == strokeValue_) {
        points.push_back({static_cast<float>(x), static_cast<float>(y)});
      }
    }
  }
  return points;
}

}  // namespace quorvex
