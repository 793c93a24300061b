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
constexpr int kNewVoteLimit = std::numeric_limits<std::uint16_t>::max();

// Up to this degree the distance grows with x, behind it falls.
constexpr int kLastGrowing = 90;

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
int LowestDistance(int width, float cosine) {
  const float lowest = std::min(static_cast<float>(width) * cosine, 0.0f);
  return static_cast<int>(lowest) / kDistancePerBin - (lowest < 0.0f ? 1 : 0);
}

int WholeBlocks(int bins) { return (bins + kBlockSize - 1) / kBlockSize * kBlockSize; }

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
      cosineProducts_(TableRow(std::max(width, 0) + 2 * kPieceLimit)),
      sineProducts_(TableRow(std::max(height, 0))),
      firstDistances_(kDegrees),
      rows_(kDegrees),
      patterns_(static_cast<std::size_t>(kPieceLimit) * kPatterns),
      // With room for four votes at the last bin.
      newVotes_(static_cast<std::size_t>(kDegrees) * static_cast<std::size_t>(bins_) + 3),
      votes_(static_cast<std::size_t>(kDegrees) * static_cast<std::size_t>(bins_)),
      mostVotes_(votes_.size() / kBlockSize) {
  for (int degree = 0; degree < kDegrees; ++degree) {
    const std::size_t d = static_cast<std::size_t>(degree);
    const double angle = degree * kPi / 180.0;
    const float cosine = static_cast<float>(std::cos(angle));
    const float sine = static_cast<float>(std::sin(angle));
    for (int x = -kPieceLimit; x < width + kPieceLimit; ++x) {
      const float product = static_cast<float>(x) * cosine;
      cosineProducts_[TableRow(x + kPieceLimit) + d] = product / kDistancePerBin;
    }
    for (int y = 0; y < height; ++y) {
      const float product = static_cast<float>(y) * sine;
      sineProducts_[TableRow(y) + d] = product / kDistancePerBin;
    }
    firstDistances_[d] = LowestDistance(width, cosine);
    rows_[d] = degree * bins_ - firstDistances_[d];
  }
  MakePatterns();
}

// The bins of a piece, in the order in which they grow, differ from the first one by 0 to 2. The
// differences of the second, the third and the fourth pixel, two bits each, are the pattern's
// number.
void HoughVotes::MakePatterns() {
  FourVotes* patterns = patterns_.data();
  for (int length = 1; length <= kPieceLimit; ++length) {
    for (int pattern = 0; pattern < kPatterns; ++pattern) {
      std::uint16_t votes[4] = {};
      ++votes[0];
      for (int pixel = 1; pixel < length; ++pixel) {
        ++votes[pattern >> 2 * (pixel - 1) & 3];
      }
      std::memcpy(patterns++, votes, sizeof votes);
    }
  }
}

// Half of the degrees after the other: the bins of a half stay in the processor's nearest cache.
void HoughVotes::Cast(const unsigned char* image, int strokeValue) {
  image_ = image;
  strokeValue_ = strokeValue;
  CollectPieces();
  std::fill(votes_.begin(), votes_.end(), 0);
  CastPieces({0, kLastGrowing + 1, true});
  CastPieces({kLastGrowing + 1, kDegrees, false});
  for (std::size_t block = 0; block < mostVotes_.size(); ++block) {
    mostVotes_[block] = LargestOfBlock(votes_.data() + block * kBlockSize);
  }
}

void HoughVotes::CastPieces(DegreeRange degrees) {
  int untilFull = kNewVoteLimit;
  for (const Piece& piece : pieces_) {
    CastPiece(piece, degrees);
    untilFull -= kPieceLimit;
    if (untilFull < kPieceLimit) {
      AddNewVotes(degrees);
      untilFull = kNewVoteLimit;
    }
  }
  AddNewVotes(degrees);
}

// The same bins as DistanceOf tells for the pixels one by one. Pixels that a shorter piece lacks
// are computed, too, but its patterns leave them out.
void HoughVotes::CastPiece(const Piece& piece, DegreeRange degrees) {
  const float* cosines1 = CosineProducts(degrees.grows ? piece.x : piece.x + piece.length - 1);
  const std::ptrdiff_t next = degrees.grows ? kDegrees : -kDegrees;
  const float* cosines2 = cosines1 + next;
  const float* cosines3 = cosines2 + next;
  const float* cosines4 = cosines3 + next;
  const float* sines = sineProducts_.data() + TableRow(piece.y);
  const int* rows = rows_.data();
  int bins[kDegrees];
  int numbers[kDegrees];
  for (int degree = degrees.first; degree < degrees.end; ++degree) {
    const int first = static_cast<int>(cosines1[degree] + sines[degree]);
    const int second = static_cast<int>(cosines2[degree] + sines[degree]) - first;
    const int third = static_cast<int>(cosines3[degree] + sines[degree]) - first;
    const int fourth = static_cast<int>(cosines4[degree] + sines[degree]) - first;
    bins[degree] = rows[degree] + first;
    numbers[degree] = second + (third << 2) + (fourth << 4);
  }
  const FourVotes* patterns = patterns_.data() + std::ptrdiff_t{piece.length - 1} * kPatterns;
  std::uint16_t* votes = newVotes_.data();
  for (int degree = degrees.first; degree < degrees.end; ++degree) {
    FourVotes four;
    std::memcpy(&four, votes + bins[degree], sizeof four);
    four += patterns[numbers[degree]];
    std::memcpy(votes + bins[degree], &four, sizeof four);
  }
}

// Moves the new votes of some degrees to those that were there before.
void HoughVotes::AddNewVotes(DegreeRange degrees) {
  const int end = degrees.end * bins_;
  for (int bin = degrees.first * bins_; bin < end; ++bin) {
    votes_[static_cast<std::size_t>(bin)] += newVotes_[static_cast<std::size_t>(bin)];
    newVotes_[static_cast<std::size_t>(bin)] = 0;
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
  return firstDistances_[static_cast<std::size_t>(degree)];
}

// The strokes in pieces, row by row. The last column is left out on purpose.
void HoughVotes::CollectPieces() {
  pieces_.clear();
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
      int length = 1;
      while (length < kPieceLimit && pixel + length < end && pixel[length] == strokeValue_) {
        ++length;
      }
      pieces_.push_back({static_cast<int>(pixel - row), y, length});
      pixel += length;
    }
  }
}

const float* HoughVotes::CosineProducts(int x) const {
  return cosineProducts_.data() + TableRow(x + kPieceLimit);
}

// Truncation to bins of two pixels takes the distances on both sides of zero into one bin. The
// tables hold the rounded products, so that no compiler can leave the rounding out.
int HoughVotes::DistanceOf(int x, int y, int degree) const {
  return static_cast<int>(CosineProducts(x)[degree] +
                          sineProducts_[TableRow(y) + static_cast<std::size_t>(degree)]);
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
      while (begin > 0 && DistanceOf(begin - 1, y, bin.degree) >= bin.distance) {
        --begin;
      }
      while (end > 0 && DistanceOf(end - 1, y, bin.degree) > bin.distance) {
        --end;
      }
    } else {
      while (begin < columns && DistanceOf(begin, y, bin.degree) > bin.distance) {
        ++begin;
      }
      while (end < columns && DistanceOf(end, y, bin.degree) >= bin.distance) {
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
