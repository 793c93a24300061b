/// @file
/// The record that the library and its host exchange.
#ifndef QUORVEX_BASE_CALIBRATION_POINT_H_
#define QUORVEX_BASE_CALIBRATION_POINT_H_

#include <memory>
#include <vector>

#if defined(__MINGW32__)
#include "base/host_allocator.h"
#endif

/// One calibration point of the target.
///
/// The layout is part of the interface: 64 bytes, alignment 4, trivially copyable. The reserved
/// bytes are never read by the library; copies carry them over unchanged.
struct CalibrationPoint {
  int id;   ///< row * (number of columns) + col + 1; -1 for a point without a place in the grid
  int row;  ///< grid row, from 0; -1 when unknown
  int col;  ///< grid column, from 0; -1 when unknown
  unsigned char reservedAfterCol[12];  ///< the host's
  float x;                             ///< pixels, 0 = centre of the leftmost pixel
  float y;  ///< pixels; in a detection result 0 is the last row of the pixel buffer, see quorvex.h
  unsigned char reservedAfterY[32];  ///< the host's
};

/// Where lists have their memory from: the host's runtime. Built with the host's own compiler that
/// is the standard allocator.
#if defined(__MINGW32__)
typedef quorvex::HostAllocator<CalibrationPoint> PointAllocator;
#else
typedef std::allocator<CalibrationPoint> PointAllocator;
#endif

/// Owned by the host; the library appends to it and edits it in place.
typedef std::vector<CalibrationPoint, PointAllocator> PointList;

#endif  // QUORVEX_BASE_CALIBRATION_POINT_H_
