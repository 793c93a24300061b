// The operations on a point list, each through the library's export. What an operation cannot do is
// said in one sentence; the list is then unchanged.
#ifndef QUORVEX_TOOLS_LISTS_POINT_EDITS_H_
#define QUORVEX_TOOLS_LISTS_POINT_EDITS_H_

#include <optional>
#include <stdexcept>

#include "interface/calibration_point.h"
#include "tools/lists/grid_position.h"
#include "tools/system/choice_option.h"

namespace quorvex::tools {

// Why nothing was changed: a sentence without a full stop.
class NothingChanged : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Position {
  float x = 0;  // pixels, to the right
  float y = 0;  // pixels, down
};

enum class CameraSide { kLeft, kRight };
// Their names in options.
constexpr Choice<CameraSide> kCameraSides[] = {{"left", CameraSide::kLeft},
                                               {"right", CameraSide::kRight}};

constexpr int kMostGridLines = 32768;  // rows or columns; as many as the widest picture has pixels

// Appends a point without id, row and column.
void AddPoint(Position position, PointList& points);

// These throw NothingChanged.

// The first point with that id.
CalibrationPoint FindPoint(int id, PointList& points);

// Every point with that id.
void DeletePoints(int id, PointList& points);

// Every point less than 9 pixels away both in x and in y.
void DeletePointsAt(Position position, PointList& points);

// The first point with that id; its row and column stay where none is given.
void MovePoint(int id, Position position, std::optional<int> row, std::optional<int> column,
               PointList& points);

// Numbers a complete grid by its geometry, column by column.
void Renumber(GridSize grid, PointList& points);

// Makes column k row k, for k from 0 to count - 1; all other points are dropped. At least one must
// stay.
void Rearrange(CameraSide side, int count, PointList& points);

// The largest column + 1; 0 when no point has a column.
int CountColumns(const PointList& points);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINT_EDITS_H_
