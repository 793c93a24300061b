// Drops marks that the others contradict, the worst first, until all agree.
#ifndef QUORVEX_PRECISE_GRID_CHECK_H_
#define QUORVEX_PRECISE_GRID_CHECK_H_

#include <vector>

#include "precise/board_map.h"

namespace quorvex::precise {

// Distance of a mark from what the others predict, over what is to be expected of it; 1 is usual.
double Contradiction(const GridMark& mark, const BoardMap& map, double scatter);

// The usual distance of marks from what their neighbours predict, px.
double UsualScatter(const std::vector<GridMark>& marks, const BoardMap& map);

// Drops from `marks` and refits the camera on the way. Returns the map of what is left.
BoardMap DropContradicted(std::vector<GridMark>& marks, CameraFit& camera, int width, int height);

std::vector<LabelledPoint> PointsOf(const std::vector<GridMark>& marks);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_GRID_CHECK_H_
