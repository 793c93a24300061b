// What holds for every result of the direct detector, whatever the picture.
#ifndef QUORVEX_FUZZ_RESULT_CHECK_H_
#define QUORVEX_FUZZ_RESULT_CHECK_H_

#include <string>
#include <vector>

#include "interface/quorvex_precise.h"

namespace quorvex::fuzz {

// In words, what is wrong with it; empty when nothing is. `canRead` says whether the image is one.
std::string WrongResult(const precise::ImageView& image, const precise::Options& options,
                        const precise::Result& result, bool canRead);
std::string WrongRefinement(const precise::ImageView& image,
                            const std::vector<precise::Point>& points,
                            const std::vector<precise::RefinedPoint>& refined, bool canRead);

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_RESULT_CHECK_H_
