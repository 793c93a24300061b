// The plain, literal forms of the stages that find a cross on a patch; see
// tests/reference/preprocess.h for what holds for all plain forms.
#ifndef QUORVEX_TESTS_REFERENCE_CROSSMARK_H_
#define QUORVEX_TESTS_REFERENCE_CROSSMARK_H_

#include "base/calibration_point.h"
#include "base/gray_image.h"
#include "crossmark/line_segment.h"

namespace quorvex::plain {

bool FindBrightestWindow(const unsigned char* image, int width, int height, int x, int y, int sizeX,
                         int sizeY, int& foundX, int& foundY);

int PatchOrigin(int position, int reach);
GrayImage CutPatch(const unsigned char* image, int width, int height, int x0, int y0, int size);

void HoughLines(const unsigned char* image, int width, int height, int strokeValue,
                LineSegmentList& lines);

void SortPointsByU(PointFList points, PointF* sorted);
void RotatePointsBack(PointFList points, float angle, float x0, float y0, PointFList& output);
void SplitLineSegments(LineSegmentList lines, LineSegmentList& segments);

bool SelectCrossLines(LineSegmentList segments, float& x, float& y, LineSegment& firstLine,
                      LineSegment& secondLine);

bool IntersectLines(LineSegment first, LineSegment second, float& x, float& y);

void SaveLinePicture(const LineSegmentList& lines, int width, int height, const char* name);

int LocateCrossMark(const unsigned char* image, int width, int height, int x, int y, int searchSize,
                    LineSegment& firstLine, LineSegment& secondLine, PointF& centre);

void SauvolaBinarize(const unsigned char* source, unsigned char* destination, float k);

bool ThinImage(unsigned char* patch, int width, int height);

bool RefineLineByProfile(const unsigned char* patch, float x, float y, LineSegment& line);

bool LocateCrossCenter(const unsigned char* greyPatch, const unsigned char* thinnedPatch, float& x,
                       float& y);

bool RefineCrossMarks(const unsigned char* image, int width, int height, const unsigned char* mask,
                      PointList& points);

}  // namespace quorvex::plain

#endif  // QUORVEX_TESTS_REFERENCE_CROSSMARK_H_
