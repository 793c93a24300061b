// Inputs that cost more than others of their size: pictures that lead many stages far, and lists of
// points as no board gives them.
#ifndef QUORVEX_BENCHMARKS_WORST_INPUTS_H_
#define QUORVEX_BENCHMARKS_WORST_INPUTS_H_

#include <vector>

#include "base/calibration_point.h"
#include "base/gray_image.h"

namespace quorvex::benchmarks {

struct WorstPicture {
  const char* name;
  unsigned char (*levelAt)(int x, int y);
};

// The first is white, which every other is held against.
const std::vector<WorstPicture>& WorstPictures();

GrayImage Draw(const WorstPicture& picture, int width, int height);

struct WorstList {
  const char* name;
  PointList (*make)(int count);  // that many points, or the next square below
  void (*run)(PointList& points);
};

const std::vector<WorstList>& WorstLists();

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_WORST_INPUTS_H_
