/// @file
/// Quorvex's direct detector: every visible mark of a cross-mark target, measured to some
/// thousandths of a pixel, each with its covariance, and nothing where there is no target.
///
/// Pictures have row 0 at the top; x runs to the right, y down, whole numbers are the middles of
/// pixels. Every function runs on the caller's thread, keeps nothing between calls and writes no
/// file; several threads may call at the same time. Nothing is thrown but std::bad_alloc. The
/// results pass std::vector and std::string, so that library and host must be built by the same
/// compiler, with the same settings.
///
/// Method: strokes are compared with the profile of a box seen through blur and pixel, block by
/// block along each arm; a mark is where the middle lines of its strokes cross. A radial camera
/// model (Kannala and Brandt, 2006, with three coefficients) predicts where marks lie, and its
/// deviations are smoothed by Gaussian processes (Rasmussen and Williams, 2006).
#ifndef QUORVEX_INTERFACE_QUORVEX_PRECISE_H_
#define QUORVEX_INTERFACE_QUORVEX_PRECISE_H_

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// In front of the functions that the library exports.
#if !defined(_WIN32)
#define QUORVEX_PRECISE_API __attribute__((visibility("default")))
#elif defined(QUORVEX_BUILDING_PRECISE)
#define QUORVEX_PRECISE_API __declspec(dllexport)
#elif defined(QUORVEX_PRECISE_STATIC)
#define QUORVEX_PRECISE_API
#else
#define QUORVEX_PRECISE_API __declspec(dllimport)
#endif

/// The direct detector.
namespace quorvex::precise {

/// An image of 8-bit grey pixels that belongs to the caller.
struct ImageView {
  const unsigned char* pixels = nullptr;  ///< the first pixel of the top row
  int width = 0;                          ///< pixels, 16 or more
  int height = 0;                         ///< pixels, 16 or more
  std::ptrdiff_t stride = 0;  ///< bytes from a row to the next below, the width or more; or minus
                              ///< that, for rows that run upwards in memory
};

/// Which marks are looked for.
enum class MarkColour {
  kEither,  ///< dark marks are looked for first, light ones where there are none
  kDark,    ///< dark marks on a bright board
  kLight    ///< light marks on a dark board
};

/// What is known of the board, and what is wanted.
struct Options {
  MarkColour colour = MarkColour::kEither;  ///< of the marks
  /// Also gives the places within the found rows and columns, and within the picture, where no mark
  /// was measured; all rows of the board where hasFixedRows, all columns where hasFixedColumns.
  bool predictsMissing = false;
  /// The board's strokes may run through from crossing to crossing. Without this such a grid is no
  /// result, since graph paper, tiles and chessboards' edges have it, too.
  bool hasContinuousLines = false;
  /// Marks in a column and in a row of the whole board, 1 to 1000, with the board as it stands in
  /// the picture; both 0 when it is not known. A grid that has more is no result (stage "size"); of
  /// one that has fewer, labels are those of the board where it can be told which of its rows and
  /// columns were found (hasFixedRows, hasFixedColumns).
  int boardRows = 0;
  int boardColumns = 0;  ///< with boardRows
};

/// What a mark's position rests on.
enum class Verdict {
  kMeasured,  ///< measured on its strokes
  kDoubtful,  ///< measured, but on two arms only, or away from what the other marks predict
  kPredicted  ///< not seen; where the other marks say that it would be
};

/// A mark of the target.
struct Mark {
  int row = 0;     ///< from 0 at the top of what was found; of the board where hasFixedRows
  int column = 0;  ///< from 0 at its left; of the board where hasFixedColumns
  double x = 0.0;  ///< px
  double y = 0.0;  ///< px
  /// Covariance of x and y, px^2. For measured marks of the measurement; for predicted ones of the
  /// prediction.
  double cxx = 0.0;
  double cxy = 0.0;                   ///< with cxx
  double cyy = 0.0;                   ///< with cxx
  std::array<bool, 4> seenArms = {};  ///< towards the next column, the next row, the column before,
                                      ///< the row before
  Verdict verdict = Verdict::kMeasured;  ///< what the position rests on
};

/// The camera that the marks were seen by, as fitted to this one picture: a smooth map of rows and
/// columns to pixels, which one picture does not make a calibration. A mark of row r and column c
/// is at (c, r * aspect, 0) on the board; X = rotation (c, r * aspect, 0) + translation is its
/// place before the camera, in pitches of the columns; at the angle a = atan2(hypot(X, Y), Z) from
/// the axis it is seen focalLength * (a + k1 a^3 + k2 a^5 + k3 a^7) px from the centre.
struct CameraFacts {
  std::array<double, 9> rotation = {};     ///< row by row
  std::array<double, 3> translation = {};  ///< pitches of the columns
  double focalLength = 0.0;                ///< px per radian
  double k1 = 0.0;                         ///< of the third power of the angle
  double k2 = 0.0;                         ///< of the fifth
  double k3 = 0.0;                         ///< of the seventh
  double centreX = 0.0;                    ///< px
  double centreY = 0.0;                    ///< px
  double aspect = 1.0;                     ///< pitch of the rows over the pitch of the columns
  /// px, robust standard deviation of the marks' coordinates from the model
  double residual = 0.0;
};

/// What was learnt of the picture.
struct PictureFacts {
  double noise = 0.0;          ///< grey levels, standard deviation
  double strokeWidth = 0.0;    ///< px, median over marks and strokes
  double pitch = 0.0;          ///< px, median distance of neighbours
  double blur = 0.0;           ///< px, standard deviation
  double armLength = 0.0;      ///< pitches, from a mark's centre to the end of its arms
  bool hasLightMarks = false;  ///< light marks on a dark board
  /// With a known size of the board: row 0 is the first row of the board, as it stands in the
  /// picture. So it is when all rows were found; also when one side shows the end of the board,
  /// blank where the next marks would begin, and the other side does not, so that the missing rows
  /// lie there: beyond the picture's edge or hidden. What is hidden by something as bright as the
  /// board looks blank.
  bool hasFixedRows = false;
  bool hasFixedColumns = false;  ///< the same for column 0
  CameraFacts camera;            ///< that the marks were seen by
};

/// What Detect() gives.
struct Result {
  std::vector<Mark> marks;  ///< by row, then by column; empty when there is no target
  PictureFacts facts;       ///< of a picture with marks; otherwise only the noise, where known
  /// Where the search ended: input, seed, camera, strokes, check, size; empty with marks.
  std::string stage;
  std::string reason;  ///< why, in words; empty with marks
};

/// Finds the marks of one target. Bad input (no pixels, less than 16 pixels high or wide, a stride
/// below the width, a board size out of range) gives a reason, like a picture without a target.
QUORVEX_PRECISE_API Result Detect(const ImageView& image, const Options& options = Options());

/// A position in the picture.
struct Point {
  double x = 0.0;  ///< px
  double y = 0.0;  ///< px
};

/// A position that was measured again.
struct RefinedPoint {
  double x = 0.0;          ///< px; where the point was when it is not refined
  double y = 0.0;          ///< px; likewise
  double cxx = 0.0;        ///< covariance, px^2; 0 when the point is not refined
  double cxy = 0.0;        ///< with cxx
  double cyy = 0.0;        ///< with cxx
  bool isRefined = false;  ///< whether it was measured
  std::string reason;      ///< why it is not, in words
};

/// Measures points of a list, placed by hand or found otherwise to about 4 px, by the fit that
/// Detect uses, each by itself: without a board there is no camera that would say how strokes bend
/// and what thick strokes do, so that Detect's own marks are better. One result for each point, in
/// their order. With MarkColour::kEither dark marks are looked for. Bad input is the reason of
/// every point.
QUORVEX_PRECISE_API std::vector<RefinedPoint> RefineMarks(const ImageView& image,
                                                          const std::vector<Point>& points,
                                                          const Options& options = Options());

}  // namespace quorvex::precise

#endif  // QUORVEX_INTERFACE_QUORVEX_PRECISE_H_
