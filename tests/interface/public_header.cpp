// Compiled, never run: the public header in front of everything else, and its record and functions
// as hosts know them. As C++11, like the header.
#include "interface/quorvex.h"
#include "interface/quorvex.h"  // a second time, as by way of another header

#include <cstddef>
#include <type_traits>

static_assert(sizeof(CalibrationPoint) == 64 && alignof(CalibrationPoint) == 4, "record");
static_assert(offsetof(CalibrationPoint, id) == 0, "id");
static_assert(offsetof(CalibrationPoint, row) == 4, "row");
static_assert(offsetof(CalibrationPoint, col) == 8, "col");
static_assert(offsetof(CalibrationPoint, x) == 24, "x");
static_assert(offsetof(CalibrationPoint, y) == 28, "y");
static_assert(std::is_trivially_copyable<CalibrationPoint>::value, "moved as plain memory");

#define EXPECT_TYPE(function, ...) \
  static_assert(std::is_same<decltype(function), __VA_ARGS__>::value, #function)

EXPECT_TYPE(SingleCamDetectCalibrationPoint, bool(unsigned char*, long, long, int, int, int, float,
                                                  float, int, std::vector<CalibrationPoint>&));
EXPECT_TYPE(QueryCalibrationPt_ID,
            bool(int, int&, int&, float&, float&, std::vector<CalibrationPoint>&));
EXPECT_TYPE(DeleteCalibrationPt_ID, bool(int, std::vector<CalibrationPoint>&));
EXPECT_TYPE(DeleteCalibrationPt_Coordinate, bool(float, float, std::vector<CalibrationPoint>&));
EXPECT_TYPE(AddCalibrationPt_Coordinate, bool(float, float, std::vector<CalibrationPoint>&));
EXPECT_TYPE(AlterCalibrationPt_Coordinate,
            bool(int, int, int, float, float, std::vector<CalibrationPoint>&));
EXPECT_TYPE(Save_Image, bool(unsigned char*, long, long, int, const char*));
EXPECT_TYPE(Read_Image, bool(unsigned char*&, long&, long&, int&, const char*));
EXPECT_TYPE(ConvertRGBToGray, void(unsigned char*, long, long, int, unsigned char*));
EXPECT_TYPE(ReAssignmentID, bool(int, int, std::vector<CalibrationPoint>&));
EXPECT_TYPE(LeftPtsRearrange, void(std::vector<CalibrationPoint>&, int, int));
EXPECT_TYPE(RightPtsRearrange, void(std::vector<CalibrationPoint>&, int, int));
