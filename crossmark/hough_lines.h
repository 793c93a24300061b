// Straight lines of stroke pixels on a patch.
#ifndef QUORVEX_CROSSMARK_HOUGH_LINES_H_
#define QUORVEX_CROSSMARK_HOUGH_LINES_H_

#include <cstddef>
#include <vector>

#include "crossmark/hough_votes.h"
#include "crossmark/line_segment.h"

namespace quorvex {

// The search for lines on images of one size. A line holds more than 30 pixels of the stroke value;
// the image's last column is never examined.
// Method: Hough transform in the normal form of Duda and Hart, 1972; bins of 1 degree and 2 pixels.
class HoughTransform {
 public:
  // Images of width * height bytes.
  HoughTransform(int width, int height);

  // Lets the strokes of an image vote. The image is read until the last of its lines is collected.
  void Vote(const unsigned char* image, int strokeValue);

  // The image's next line, strongest first. False when there is none left.
  bool NextLine(HoughBin& line);

  // The stroke pixels on a line, row by row.
  PointFList Collect(const HoughBin& line) const { return votes_.Collect(line); }

 private:
  void QueueLines(int votesAbove, int largestVotes);
  void DropSurroundings(const HoughBin& line);
  std::size_t PlaceOf(int degree, int distance) const;

  HoughVotes votes_;
  std::vector<unsigned char> isDropped_;  // of the bins: near a line that was given out
  std::vector<HoughBin> queue_;           // strongest first
  std::size_t next_ = 0;                  // in the queue
  int queuedAbove_ = 0;                   // votes; bins of fewer are not queued yet
};

// Appends one record for each line of an image to `lines`, strongest first. Only the point list of
// a record is set.
void HoughLines(const unsigned char* image, int width, int height, int strokeValue,
                LineSegmentList& lines);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_HOUGH_LINES_H_
