// Where a mark's middle may be: peaks of the Hessian's determinant, which is large where the
// picture gets brighter in all directions, and in two of them more than a single stroke would.
#ifndef QUORVEX_PRECISE_HESSIAN_PEAKS_H_
#define QUORVEX_PRECISE_HESSIAN_PEAKS_H_

#include <vector>

#include "precise/pyramid.h"

namespace quorvex::precise {

struct HessianPeak {
  int x = 0;  // pixels of the level
  int y = 0;
  int strength = 0;  // determinant; (64 grey levels per square pixel) squared
};

// The peaks among their 5 x 5 neighbours above what noise (grey levels, of the picture) makes, by
// row, then by column; of very many the strongest `most`. Two pixels at the rim of the level are
// not looked at.
std::vector<HessianPeak> FindHessianPeaks(const PyramidLevel& level, double noise,
                                          std::size_t most);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_HESSIAN_PEAKS_H_
