// Pictures that show no board of marks, though some come near it.
#ifndef QUORVEX_BENCHMARKS_PRECISION_EMPTY_PICTURES_H_
#define QUORVEX_BENCHMARKS_PRECISION_EMPTY_PICTURES_H_

#include <functional>
#include <string>
#include <vector>

#include "tools/pictures/picture.h"

namespace quorvex::benchmarks {

struct EmptyPicture {
  std::string name;
  std::function<tools::Picture()> make;
};

std::vector<EmptyPicture> AllEmptyPictures();

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_EMPTY_PICTURES_H_
