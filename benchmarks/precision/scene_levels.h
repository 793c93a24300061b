// The light that falls on a pixel grid from a scene, before any blur: which pixels are of one
// level, and the levels of the cells of all others. An edge covers a cell in part, by the exact
// area that a straight edge would cover, so that the cells alias no edge, in whatever direction it
// runs.
#ifndef QUORVEX_BENCHMARKS_PRECISION_SCENE_LEVELS_H_
#define QUORVEX_BENCHMARKS_PRECISION_SCENE_LEVELS_H_

#include <optional>
#include <vector>

#include "benchmarks/precision/scene.h"
#include "tools/render/board.h"
#include "tools/render/camera.h"

namespace quorvex::benchmarks {

// How an edge across the board shows in the cells of one pixel.
class EdgeShape {
 public:
  // The gradient of the coordinate across the edge, in its units per pixel; `cell` in pixels.
  EdgeShape(double gradientX, double gradientY, double cell);

  // The part of a cell that lies on the positive side of an edge; `distance` from the cell's middle
  // in the coordinate's units.
  double Coverage(double distance) const;

 private:
  double pixelsPerUnit_;
  double wide_;    // pixels, the cell's sides seen along the gradient
  double narrow_;  // pixels
};

class SceneLevels {
 public:
  // `reach` in pixels: how far beyond the picture's frame levels will be asked for.
  SceneLevels(const Scene& scene, double reach);

  // For each of the pixels `firstX` to `firstX + uniform.size() - 1` of a row the level that fills
  // it, nothing where an edge may touch it.
  void FindUniform(int firstX, int y, std::vector<std::optional<float>>& uniform) const;

  // The levels of `side` cells a pixel of one row of cells, for the pixel's 0 <= cellRow < side.
  void SampleCells(int x, int y, int cellRow, int side, float* cells) const;

 private:
  struct Place {
    tools::BoardPoint point;  // millimetres
    double stretchXX = 0;     // millimetres of x per pixel to the right
    double stretchXY = 0;     // of x per pixel down
    double stretchYX = 0;
    double stretchYY = 0;
  };

  bool Find(double x, double y, tools::BoardPoint& point) const;
  bool FindPlace(double x, double y, Place& place) const;
  std::optional<float> BoardLevel(const tools::BoardPoint& point, double radius) const;
  std::optional<float> MarkLevel(const tools::BoardPoint& point, double radius) const;
  double Darkness(const tools::BoardPoint& point, const EdgeShape& across,
                  const EdgeShape& down) const;
  double CellLevel(const tools::BoardPoint& point, const EdgeShape& across,
                   const EdgeShape& down) const;
  std::optional<float> OccluderLevel(double x, double y, bool& isNearEdge) const;
  double Occlude(double level, double x, double y, double cell) const;
  bool IsMissing(int row, int column) const;

  const Scene& scene_;  // outlives this
  const tools::RenderSettings& target_;
  tools::Board board_;
  tools::Camera camera_;
  tools::RayTable rays_;
  tools::BoardPoint firstMark_;
  double cornerX_;  // millimetres, of the board
  double cornerY_;
  bool hasLines_;
  std::vector<bool> isMissing_;
};

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_SCENE_LEVELS_H_
