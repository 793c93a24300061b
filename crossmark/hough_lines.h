// Straight lines of stroke pixels on a patch.
#ifndef QUORVEX_CROSSMARK_HOUGH_LINES_H_
#define QUORVEX_CROSSMARK_HOUGH_LINES_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "crossmark/line_segment.h"

namespace quorvex {

// The search for lines on images of one size, with the tables that all of them share. A line holds
// more than 30 pixels of the stroke value; the image's last column is never examined.
// Method: Hough transform in the normal form of Duda and Hart, 1972; bins of 1 degree and 2 pixels.
class HoughTransform {
 public:
  struct Line {
    int degree;    // of the line's normal
    int distance;  // 2 pixels; its bin holds the distances that integer division takes to it
    int votes;     // stroke pixels on the line
  };

  // Images of width * height bytes.
  HoughTransform(int width, int height);

  // Lets the strokes of an image vote. The image is read until the last of its lines is collected.
  void Vote(const unsigned char* image, int strokeValue);

  // The image's next line, strongest first. False when there is none left.
  bool NextLine(Line& line);

  // The stroke pixels on a line, row by row.
  PointFList Collect(const Line& line) const;

 private:
  struct Stroke {
    int x;
    int y;
  };

  // The distances that strokes of an image have at one degree.
  struct Range {
    int firstStep;  // pixels, even
    int row;        // where the degree's steps begin, less the first step
  };

  void CollectStrokes();
  void CastVotes();
  void AddStepVotes();
  void QueueLines(int votesAbove, int largestVotes);
  void DropSurroundings(const Line& line);
  int DistanceOf(Stroke stroke, int degree) const;
  std::size_t BinOf(int degree, int distance) const;

  int width_;
  int height_;
  int bins_;  // of each degree, in whole blocks
  // A row of 180 products for each x and each y: x * cos and y * sin, rounded to single precision.
  std::vector<float> cosineProducts_;
  std::vector<float> sineProducts_;
  std::vector<Range> ranges_;  // of the degrees
  std::vector<int> rows_;      // of the ranges, side by side

  const unsigned char* image_ = nullptr;
  int strokeValue_ = 0;
  std::vector<Stroke> strokes_;
  std::vector<std::uint16_t> stepVotes_;  // of the pixels of distance, degree by degree
  std::vector<int> votes_;                // of the bins, degree by degree
  std::vector<int> mostVotes_;            // in each block of bins

  std::vector<unsigned char> isDropped_;  // of the bins: near a line that was given out
  std::vector<Line> queue_;               // strongest first
  std::size_t next_ = 0;                  // in the queue
  int queuedAbove_ = 0;                   // votes; bins of fewer are not queued yet
};

// Appends one record for each line of an image to `lines`, strongest first. Only the point list of
// a record is set.
void HoughLines(const unsigned char* image, int width, int height, int strokeValue,
                LineSegmentList& lines);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_HOUGH_LINES_H_
