// Grey levels of the working image once the target's outline is drawn into it; the inside is 0.
#ifndef QUORVEX_PREPROCESS_OUTLINE_LEVEL_H_
#define QUORVEX_PREPROCESS_OUTLINE_LEVEL_H_

namespace quorvex {

constexpr unsigned char kInsideLevel = 0;
constexpr unsigned char kOutlineLevel = 128;
constexpr unsigned char kOutsideLevel = 50;

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_OUTLINE_LEVEL_H_
