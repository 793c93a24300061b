// The exported faces of the library, all twelve. Those that may call MFC begin as MFC wants it of a
// library that shares it with its host.

#include "imageio/bmp_file.h"
#include "imageio/grey_conversion.h"
#include "interface/detection_driver.h"
#include "interface/point_editing.h"
#include "interface/quorvex.h"
#include "platform/mfc.h"
#include "postprocess/id_reassignment.h"
#include "postprocess/rearrangement.h"

bool SingleCamDetectCalibrationPoint(unsigned char* image, long width, long height,
                                     int bitsPerPixel, int rowSpan, int columnSpan, float unused1,
                                     float unused2, int rowSteps, PointList& points) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  return quorvex::SingleCamDetectCalibrationPoint(image, width, height, bitsPerPixel, rowSpan,
                                                  columnSpan, unused1, unused2, rowSteps, points);
}

bool Save_Image(unsigned char* pixels, long width, long height, int bitsPerPixel,
                const char* path) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  return quorvex::Save_Image(pixels, width, height, bitsPerPixel, path);
}

bool Read_Image(unsigned char*& pixels, long& width, long& height, int& bitsPerPixel,
                const char* path) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  return quorvex::Read_Image(pixels, width, height, bitsPerPixel, path);
}

void ConvertRGBToGray(unsigned char* pixels, long width, long height, int bitsPerPixel,
                      unsigned char* grey) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  quorvex::ConvertRGBToGray(pixels, width, height, bitsPerPixel, grey);
}

bool QueryCalibrationPt_ID(int id, int& row, int& col, float& x, float& y, PointList& points) {
  return quorvex::QueryCalibrationPt_ID(id, row, col, x, y, points);
}

bool DeleteCalibrationPt_ID(int id, PointList& points) {
  return quorvex::DeleteCalibrationPt_ID(id, points);
}

bool DeleteCalibrationPt_Coordinate(float x, float y, PointList& points) {
  return quorvex::DeleteCalibrationPt_Coordinate(x, y, points);
}

bool AddCalibrationPt_Coordinate(float x, float y, PointList& points) {
  return quorvex::AddCalibrationPt_Coordinate(x, y, points);
}

bool AlterCalibrationPt_Coordinate(int id, int row, int col, float x, float y, PointList& points) {
  return quorvex::AlterCalibrationPt_Coordinate(id, row, col, x, y, points);
}

bool ReAssignmentID(int rows, int columns, PointList& points) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  return quorvex::ReAssignmentID(rows, columns, points);
}

void LeftPtsRearrange(PointList& points, int unused, int count) {
  quorvex::LeftPtsRearrange(points, unused, count);
}

void RightPtsRearrange(PointList& points, int unused, int count) {
  quorvex::RightPtsRearrange(points, unused, count);
}
