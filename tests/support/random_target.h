// Whole pictures for the detection, and lists that it is called with.
#ifndef QUORVEX_TESTS_SUPPORT_RANDOM_TARGET_H_
#define QUORVEX_TESTS_SUPPORT_RANDOM_TARGET_H_

#include "base/calibration_point.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {

// A light board in the dark with dark marks on it; soft strokes are found, hard ones make gradients
// that count as negative.
TestImage RandomTarget(CaseRandom& random, bool isSoft);

// An input for each way out of the detection.
TestImage RandomDetectionInput(CaseRandom& random);

// What a caller's list may hold before.
PointList RandomListBefore(CaseRandom& random);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_RANDOM_TARGET_H_
