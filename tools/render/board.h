// The board of marks: where it stands before the camera and how bright each of its points is.
#ifndef QUORVEX_TOOLS_RENDER_BOARD_H_
#define QUORVEX_TOOLS_RENDER_BOARD_H_

#include <optional>
#include <vector>

#include "tools/render/camera.h"
#include "tools/render/render_settings.h"

namespace quorvex::tools {

struct BoardPoint {
  double x = 0;  // millimetres along the rows, from the middle of the marks
  double y = 0;  // millimetres along the columns, downwards
};

class Board {
 public:
  // Throws InputError (tools/errors.h) when the camera would see the back of the board.
  explicit Board(const RenderSettings& settings);

  BoardPoint MarkCentre(int row, int column) const;

  // A point of the board in camera coordinates, millimetres.
  Vector3 ToCamera(const BoardPoint& point) const;

  // The point of the board's plane on a ray from the camera; false if the plane is not before it.
  bool Intersect(const Vector3& ray, BoardPoint& point) const;

  // Grey level of a point of the board's plane; beyond the board's edge, of the background.
  double LevelAt(const BoardPoint& point) const;

 private:
  bool IsOnMark(const BoardPoint& point) const;
  bool IsOnDarkSquare(const BoardPoint& point) const;

  const RenderSettings& settings_;  // outlives the board
  Vector3 axisX_;                   // the board's axes in camera coordinates
  Vector3 axisY_;
  Vector3 normal_;         // points away from the camera
  Vector3 origin_;         // millimetres, camera coordinates
  Vector3 cameraInBoard_;  // millimetres, the camera seen from the board
  BoardPoint firstMark_;   // row 0, column 0
  BoardPoint corner_;      // the corner at positive x and y
  double marksPerMillimetre_;
  std::vector<bool> isShown_;  // per mark, row after row
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_RENDER_BOARD_H_
