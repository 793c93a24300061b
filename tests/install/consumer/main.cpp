// A host in small: calls every exported function of the installed library once.
#include <cstdio>

#include "interface/quorvex.h"

namespace {

int failures = 0;
unsigned char* pixels = nullptr;  // of the image read; its memory is kept to the end

void Expect(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "failed: %s\n", what);
    ++failures;
  }
}

void UseTheImageFunctions() {
  unsigned char colour[2 * 3] = {10, 20, 30, 255, 255, 255};
  unsigned char grey[4] = {0, 0, 0, 0};
  ConvertRGBToGray(colour, 2, 1, 24, grey);
  Expect(grey[0] == 21 && grey[1] == 255, "ConvertRGBToGray");
  Expect(Save_Image(grey, 4, 1, 8, "grey.bmp"), "Save_Image");
  long width = 0;
  long height = 0;
  int bits = 0;
  Expect(Read_Image(pixels, width, height, bits, "grey.bmp") && width == 4 && height == 1 &&
             bits == 8 && pixels[0] == 21,
         "Read_Image");
}

void UseThePointFunctions() {
  PointList points;
  Expect(AddCalibrationPt_Coordinate(200.0f, 50.0f, points) &&
             AddCalibrationPt_Coordinate(100.0f, 50.0f, points) && points.size() == 2,
         "AddCalibrationPt_Coordinate");
  Expect(ReAssignmentID(1, 2, points) && points[1].id == 2 && points[1].x > 150.0f,
         "ReAssignmentID");
  Expect(AlterCalibrationPt_Coordinate(1, 3, 1, 10.0f, 20.0f, points),
         "AlterCalibrationPt_Coordinate");
  int row = 0;
  int col = 0;
  float x = 0.0f;
  float y = 0.0f;
  Expect(QueryCalibrationPt_ID(1, row, col, x, y, points) && row == 3 && col == 1,
         "QueryCalibrationPt_ID");
  LeftPtsRearrange(points, 0, 2);
  Expect(points.size() == 2 && points[0].id == 3 && points[0].x > 150.0f && points[1].id == 4,
         "LeftPtsRearrange");
  RightPtsRearrange(points, 0, 1);
  Expect(points.size() == 1 && points[0].id == 1 && points[0].x > 150.0f, "RightPtsRearrange");
  Expect(DeleteCalibrationPt_Coordinate(205.0f, 45.0f, points) && points.empty(),
         "DeleteCalibrationPt_Coordinate");
  AddCalibrationPt_Coordinate(1.0f, 2.0f, points);
  Expect(DeleteCalibrationPt_ID(-1, points) && points.empty(), "DeleteCalibrationPt_ID");
}

void UseTheDetection() {
  unsigned char black[8 * 8] = {};
  PointList points;
  Expect(!SingleCamDetectCalibrationPoint(black, 8, 8, 24, 20, 20, 0.0f, 0.0f, 300, points) &&
             points.empty(),
         "SingleCamDetectCalibrationPoint");
}

}  // namespace

int main() {
  UseTheImageFunctions();
  UseThePointFunctions();
  UseTheDetection();
  return failures == 0 ? 0 : 1;
}
