// The exported faces of what the subsystem folders implement; the driver and the point editing,
// which live in this folder, define theirs themselves. Those that may call MFC begin as MFC wants
// it of a library that shares it with its host.

#include "imageio/bmp_file.h"
#include "imageio/grey_conversion.h"
#include "interface/quorvex.h"
#include "platform/mfc.h"
#include "postprocess/id_reassignment.h"
#include "postprocess/rearrangement.h"

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
