#include "crossmark/hough_lines.h"

#include <algorithm>
#include <utility>

namespace quorvex {
namespace {

constexpr int kDegrees = 180;
constexpr int kVotesAbove = 30;    // votes that a line must exceed
constexpr int kMergeDegrees = 10;  // lines nearer than this in both are one line
constexpr int kMergeBins = 30;
constexpr std::size_t kLineLimit = 1'000'000;

}  // namespace

HoughTransform::HoughTransform(int width, int height)
    : votes_(width, height),
      isDropped_(PlaceOf(kDegrees - 1, votes_.FirstDistance(kDegrees - 1)) +
                 static_cast<std::size_t>(votes_.BinsOfDegree())) {}

void HoughTransform::Vote(const unsigned char* image, int strokeValue) {
  votes_.Cast(image, strokeValue);
  std::fill(isDropped_.begin(), isDropped_.end(), static_cast<unsigned char>(0));
  queue_.clear();
  next_ = 0;
  queuedAbove_ = votes_.Most();
}

bool HoughTransform::NextLine(HoughBin& line) {
  for (;;) {
    for (; next_ < queue_.size(); ++next_) {
      line = queue_[next_];
      if (isDropped_[PlaceOf(line.degree, line.distance)] == 0) {
        DropSurroundings(line);
        return true;
      }
    }
    if (queuedAbove_ <= kVotesAbove) {
      return false;
    }
    // In portions: who looks for the strongest lines alone needs few of the bins.
    const int largestVotes = queuedAbove_;
    queuedAbove_ = std::max(largestVotes * 3 / 4, kVotesAbove);
    QueueLines(queuedAbove_, largestVotes);
  }
}

// Appends the bins of more than `votesAbove` and at most `largestVotes` votes to the queue,
// strongest first; equals stand in the order of degree and distance.
void HoughTransform::QueueLines(int votesAbove, int largestVotes) {
  std::vector<HoughBin> lines;
  votes_.AppendBins(votesAbove, largestVotes, lines);
  // How many bins have each number of votes, then where they go.
  std::vector<std::size_t> places(static_cast<std::size_t>(largestVotes) + 1);
  for (const HoughBin& line : lines) {
    ++places[static_cast<std::size_t>(line.votes)];
  }
  std::size_t next = queue_.size();
  for (std::size_t votes = places.size(); votes-- > 0;) {
    next += std::exchange(places[votes], next);
  }
  queue_.resize(next);
  for (const HoughBin& line : lines) {
    queue_[places[static_cast<std::size_t>(line.votes)]++] = line;
  }
}

// Lines nearer than this in both are one line. Degrees do not wrap around: 179 and 0 are far apart.
void HoughTransform::DropSurroundings(const HoughBin& line) {
  const int firstDegree = std::max(line.degree - kMergeDegrees + 1, 0);
  const int lastDegree = std::min(line.degree + kMergeDegrees - 1, kDegrees - 1);
  for (int degree = firstDegree; degree <= lastDegree; ++degree) {
    const int firstDistance = votes_.FirstDistance(degree);
    const int first = std::max(line.distance - kMergeBins + 1, firstDistance);
    const int last =
        std::min(line.distance + kMergeBins - 1, firstDistance + votes_.BinsOfDegree() - 1);
    if (first <= last) {
      unsigned char* dropped = isDropped_.data() + PlaceOf(degree, first);
      std::fill(dropped, dropped + (last - first + 1), static_cast<unsigned char>(1));
    }
  }
}

std::size_t HoughTransform::PlaceOf(int degree, int distance) const {
  return static_cast<std::size_t>(degree) * static_cast<std::size_t>(votes_.BinsOfDegree()) +
         static_cast<std::size_t>(distance - votes_.FirstDistance(degree));
}

void HoughLines(const unsigned char* image, int width, int height, int strokeValue,
                LineSegmentList& lines) {
  HoughTransform hough(width, height);
  hough.Vote(image, strokeValue);
  HoughBin found;
  for (std::size_t count = 0; count < kLineLimit && hough.NextLine(found); ++count) {
    LineSegment line;
    line.points = hough.Collect(found);
    lines.push_back(std::move(line));
  }
}

}  // namespace quorvex
