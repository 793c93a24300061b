// Finds every mark of a board from the marks of its seed.
//
// The camera that the marks so far are seen by predicts where labels lie, with the directions,
// lengths and widths of their strokes; each place is looked at and fitted, and what looks like a
// mark there joins. First neighbour by neighbour, then over gaps. A mark that the others contradict
// is dropped, the worst first.
#ifndef QUORVEX_PRECISE_GRID_GROWTH_H_
#define QUORVEX_PRECISE_GRID_GROWTH_H_

#include <string>
#include <vector>

#include "precise/board_facts.h"
#include "precise/board_map.h"
#include "precise/gray_picture.h"
#include "precise/seed.h"

namespace quorvex::precise {

struct Grid {
  std::vector<GridMark> marks;  // by row, then by column; empty when there is no board
  CameraFit camera;
  BoardFacts facts;
  std::string stage;   // where growing ended: seed, camera, strokes or check; empty with marks
  std::string reason;  // why there are no marks, in words; empty with marks
};

Grid GrowGrid(const GrayPicture& picture, const Seed& seed);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_GRID_GROWTH_H_
