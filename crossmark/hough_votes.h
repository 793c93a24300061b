// The votes of stroke pixels for straight lines.
#ifndef QUORVEX_CROSSMARK_HOUGH_VOTES_H_
#define QUORVEX_CROSSMARK_HOUGH_VOTES_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "crossmark/line_segment.h"

namespace quorvex {

// A bin of the transform: the stroke pixels at one angle and one distance.
struct HoughBin {
  int degree;    // 0 to 179, of the line's normal
  int distance;  // 2 pixels; a bin holds the distances that integer division takes to it
  int votes;     // stroke pixels on the line
};

// Counts votes on images of one size, with the tables that all of them share.
class HoughVotes {
 public:
  // Images of width * height bytes.
  HoughVotes(int width, int height);

  // Lets the strokes of an image vote: its pixels of the given value but for the last column. The
  // image is read again by Collect.
  void Cast(const unsigned char* image, int strokeValue);

  // The votes of the strongest bin.
  int Most() const;

  // Appends the bins of more than `votesAbove` and at most `largestVotes` votes, in the order of
  // degree and distance.
  void AppendBins(int votesAbove, int largestVotes, std::vector<HoughBin>& bins) const;

  // The stroke pixels of a bin, row by row.
  PointFList Collect(const HoughBin& bin) const;

  // Each degree has this many bins, from FirstDistance on.
  int BinsOfDegree() const { return bins_; }
  int FirstDistance(int degree) const;

 private:
  // Some pixels of a stroke side by side, at most kPieceLimit.
  struct Piece {
    int x;  // of the leftmost one
    int y;
    int length;
  };
  static constexpr int kPieceLimit = 4;

  // Degrees for which the distance grows with x, or for which it falls.
  struct DegreeRange {
    int first;
    int end;
    bool grows;
  };

  // The votes of a piece for four neighbouring bins, added as one number of 64 bits.
  using FourVotes = std::uint64_t;
  static constexpr int kPatterns = 64;

  void MakePatterns();
  void CollectPieces();
  void CastPieces(DegreeRange degrees);
  void CastPiece(const Piece& piece, DegreeRange degrees);
  void AddNewVotes(DegreeRange degrees);
  const float* CosineProducts(int x) const;
  int DistanceOf(int x, int y, int degree) const;

  int width_;
  int height_;
  int bins_;  // of each degree, in whole blocks
  // A row of 180 halved products for each x and each y: x * cos and y * sin, rounded to single
  // precision. Halving is exact, so that their sum counts bins and is otherwise the distance. Some
  // columns before the first and behind the last let every piece be counted as a whole one.
  std::vector<float> cosineProducts_;
  std::vector<float> sineProducts_;
  std::vector<int> firstDistances_;  // bins: where each degree begins
  std::vector<int> rows_;            // where distance 0 of each degree stands among the bins
  std::vector<FourVotes> patterns_;  // kPatterns for each length of a piece

  const unsigned char* image_ = nullptr;
  int strokeValue_ = 0;
  std::vector<Piece> pieces_;
  std::vector<std::uint16_t> newVotes_;  // of the bins, degree by degree
  std::vector<int> votes_;               // what the new ones are added to
  std::vector<int> mostVotes_;           // in each block of bins
};

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_HOUGH_VOTES_H_
