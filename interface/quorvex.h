/// @file
/// Quorvex: finds the calibration points of a printed cross-mark target in a camera image.
///
/// This is the whole public interface. It compiles as C++11. Every function runs on the caller's
/// thread and keeps nothing between calls; failures are the false result, except an allocation
/// failure (std::bad_alloc; with the real MFC its CMemoryException*) and the file exception of a
/// failing Save_Image: MFC's CFileException*, to be deleted by whoever catches it. A host without
/// MFC can catch it as (...) only; between compilers of different makers none of them can be caught
/// by its type (docs/windows.md).
///
/// Several threads, and several processes in one folder, may call at the same time, with lists of
/// their own: each gets what it would get alone. Only the files that detections leave behind have
/// fixed names and are shared (the current directory is the process's). One call at a time writes a
/// file, and one that finds it in use leaves it alone; so each file is that of one call, but two
/// files need not be of the same call (where the file system has no locks, any mixture may remain).
/// No result depends on them.
///
/// Where the system limits the size of files it sends SIGXFSZ, which ends the process unless the
/// host ignores it, as a host does that wants to go on; it is then a write that fails.
///
/// Images are 8-bit pixel buffers, one row after another without gaps. Row 0 of a buffer is the
/// bottom row of the picture, as in a BMP file.
#ifndef QUORVEX_INTERFACE_QUORVEX_H_
#define QUORVEX_INTERFACE_QUORVEX_H_

#include "interface/calibration_point.h"

/// In front of the functions that the library exports.
#if !defined(_WIN32)
#define QUORVEX_API __attribute__((visibility("default")))
#elif defined(QUORVEX_BUILDING_LIBRARY)
#define QUORVEX_API  // exported by the lists in interface/*.def
#else
#define QUORVEX_API __declspec(dllimport)
#endif

/// Finds the cross marks of the target in a grey image and appends one record per grid position to
/// `points` (appended to, never cleared; pass an empty list).
///
/// @param image         width x height bytes; not written to. The target is bright (80 and above)
///                      around the image centre, its surroundings and its marks are darker than 80.
/// @param width         pixels; at least 4, a multiple of 4 (otherwise a message is shown).
/// @param height        the same.
/// @param bitsPerPixel  must be 8.
/// @param rowSpan       how far rows are looked for beyond the centre row; 20 serves most targets.
///                      The search ends where no more marks are. In a degenerate grid, whose rows
///                      cross, the same rows can be found again and again, and only the span ends
///                      that: after 2 * rowSpan + 1 steps, whose points are all kept until then.
///                      With a span far beyond the board such a grid grows until time or memory
///                      ends.
/// @param columnSpan    the same for columns.
/// @param unused1       ignored.
/// @param unused2       ignored.
/// @param rowSteps      how many pixels a row may run from one mark to the next; at least the
///                      largest spacing + 10, and above 121. 300 serves most targets.
/// @param points        the list.
/// @return true when the detection ran to its end, also when no point survived; false when the
/// input was refused or no grid was found, and the list is then unchanged.
///
/// On return positions are pixels with integer values at pixel centres, x to the right and y down
/// from the top row of the picture (the last row of the buffer); id = row * columns + col + 1, rows
/// counted from the top, columns from the left; the list is ordered by id.
///
/// Leaves diagnostic pictures ("./ProImage.bmp" and others) in the current directory and
/// "D:/Row.txt", "D:/Col.txt" and "D:/sdf.txt" where that folder exists; failures to write them are
/// ignored.
///
/// When memory ends in mid-call, the exception leaves the list usable but not finished: what it
/// held before is there, and none, some or all of the grid's points after it. They may not be
/// refined yet, their y may still count from the bottom row, points outside the image may be among
/// them, and the order may not yet be that of the ids. A host discards the list, or keeps a copy of
/// what it held.
QUORVEX_API bool SingleCamDetectCalibrationPoint(unsigned char* image, long width, long height,
                                                 int bitsPerPixel, int rowSpan, int columnSpan,
                                                 float unused1, float unused2, int rowSteps,
                                                 PointList& points);

/// Writes a pixel buffer as an uncompressed BMP file, replacing an existing one; buffer row 0
/// becomes the bottom row of the picture. Returns false when the size or depth cannot be stored or
/// the file cannot be created or is in use; a failing write raises the file exception, and leaves
/// the file in part.
QUORVEX_API bool Save_Image(unsigned char* pixels, long width, long height, int bitsPerPixel,
                            const char* path);

/// Reads an uncompressed BMP file. On success `pixels` points at the first stored row inside a
/// block that is handed over for the life of the process; rows are bottom-up, each padded to 4
/// bytes. The width, height and depth are those of the file's header and are not checked against
/// the file's size. A read-only file, a file in use, or one that is not a BMP file gives false and
/// nothing is changed.
QUORVEX_API bool Read_Image(unsigned char*& pixels, long& width, long& height, int& bitsPerPixel,
                            const char* path);

/// Converts tightly packed blue-green-red (24 bits) or blue-green-red-unused (32 bits) rows into
/// grey bytes, `grey` being width x height bytes of the caller's. Any other depth shows a message
/// and leaves `grey` as it was.
QUORVEX_API void ConvertRGBToGray(unsigned char* pixels, long width, long height, int bitsPerPixel,
                                  unsigned char* grey);

/// Sets row, col, x and y to those of the first point with that id. False, nothing set, when there
/// is none.
QUORVEX_API bool QueryCalibrationPt_ID(int id, int& row, int& col, float& x, float& y,
                                       PointList& points);

/// Removes every point with that id; the others keep their order. False when there is none.
QUORVEX_API bool DeleteCalibrationPt_ID(int id, PointList& points);

/// Removes every point less than 9 pixels from (x, y) both in x and in y; the others keep their
/// order. False when there is none.
QUORVEX_API bool DeleteCalibrationPt_Coordinate(float x, float y, PointList& points);

/// Appends a point at (x, y) with id, row and col -1. Always true.
QUORVEX_API bool AddCalibrationPt_Coordinate(float x, float y, PointList& points);

/// Sets row, col, x and y of the first point with that id; the id stays. False when there is none.
QUORVEX_API bool AlterCalibrationPt_Coordinate(int id, int row, int col, float x, float y,
                                               PointList& points);

/// Renumbers a complete rows x columns grid by its geometry alone: row 0 has the smallest y, column
/// 0 the smallest x, id = row * columns + col + 1, and the list is ordered column by column. The
/// grid's spacing must shrink from its middle outwards, as in a fisheye image. False, the list
/// unchanged, when the number of points differs (a message is shown, but for an empty list) or the
/// grid cannot be traced.
QUORVEX_API bool ReAssignmentID(int rows, int columns, PointList& points);

/// Renumbers a grid for the left camera: column k becomes row k, for k from 0 to count - 1, and the
/// point with the largest y in it gets column 0; id = row * count + col + 1. Points of other
/// columns are dropped. Where a column does not hold `count` points, its columns count from 0 at
/// the largest y up. `unused` is ignored.
QUORVEX_API void LeftPtsRearrange(PointList& points, int unused, int count);

/// The same for the right camera, but for columns that do not hold `count` points: theirs count
/// from count - 1 at the smallest y down.
QUORVEX_API void RightPtsRearrange(PointList& points, int unused, int count);

#endif  // QUORVEX_INTERFACE_QUORVEX_H_
