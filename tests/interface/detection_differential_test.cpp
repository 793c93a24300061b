#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "interface/quorvex.h"
#include "tests/reference/interface.h"
#include "tests/support/list_difference.h"
#include "tests/support/list_drive.h"
#include "tests/support/message_box.h"
#include "tests/support/random_target.h"
#include "tests/support/side_by_side.h"
#include "tests/support/turned_target.h"

namespace quorvex::tests {
namespace {

struct Parameters {
  int rowSpan = 20;
  int columnSpan = 20;
  int rowSteps = 300;
};

// What a detection leaves besides its pictures.
struct Outcome {
  bool result = false;
  PointList points;
  std::vector<std::string> messages;
  std::string lists;
};

template <typename Detect>
void RunDetection(Detect detect, Outcome& outcome) {
  const ListDrive drive;
  TakeMessages();
  outcome.result = detect(outcome.points);
  outcome.messages = TakeMessages();
  for (const char* name : kListNames) {
    std::ifstream file(ListDrive::ListPath(name), std::ios::binary);
    outcome.lists +=
        std::string(name) + ":" + std::string(std::istreambuf_iterator<char>(file), {});
  }
}

std::string DifferenceOf(const Outcome& plain, const Outcome& fast) {
  if (plain.result != fast.result) {
    return std::string("returns ") + (fast.result ? "true" : "false");
  }
  if (plain.messages != fast.messages) {
    return "other messages";
  }
  if (plain.lists != fast.lists) {
    return "other lists of numbers";
  }
  return ListDifference(plain.points, fast.points);
}

// The library's detection and the one of plain stages alone, both appending to the same list.
// `isAgain`: over the pictures of the run before.
std::string CompareDetections(SideBySide& forms, const TestImage& image,
                              const Parameters& parameters, const PointList& before, bool isAgain) {
  TestImage input = image;
  Outcome plainOutcome;
  Outcome fastOutcome;
  plainOutcome.points = before;
  fastOutcome.points = before;
  const auto plainForm = [&] {
    RunDetection(
        [&](PointList& points) {
          return plain::SingleCamDetectCalibrationPoint(input.Data(), input.width, input.height, 8,
                                                        parameters.rowSpan, parameters.columnSpan,
                                                        0.0f, 0.0f, parameters.rowSteps, points);
        },
        plainOutcome);
  };
  const auto fastForm = [&] {
    RunDetection(
        [&](PointList& points) {
          return ::SingleCamDetectCalibrationPoint(input.Data(), input.width, input.height, 8,
                                                   parameters.rowSpan, parameters.columnSpan, 0.0f,
                                                   0.0f, parameters.rowSteps, points);
        },
        fastOutcome);
  };
  if (isAgain) {
    forms.RunAgain(plainForm, fastForm);
  } else {
    forms.Run(plainForm, fastForm);
  }
  if (input.pixels != image.pixels) {
    return "the input is changed";
  }
  const std::string difference = DifferenceOf(plainOutcome, fastOutcome);
  return difference.empty() ? forms.FileDifference() : difference;
}

TEST(DetectionDifferentialTest, SamePointsListsAndPictures) {
  SideBySide forms;
  ExpectSameOnCases(60, [&forms](CaseRandom& random) {
    const TestImage image = RandomDetectionInput(random);
    Parameters parameters;
    if (random.OneIn(3)) {
      parameters.rowSpan = random.OneOf({0, 1, 2, 20});
      parameters.columnSpan = random.OneOf({0, 1, 2, 20});
      parameters.rowSteps = random.OneOf({0, 121, 122, 500});
    }
    const PointList before = RandomListBefore(random);
    // A picture must not keep the end of a larger one that had its name.
    const bool isAgain = random.OneIn(4);
    return CompareDetections(forms, image, parameters, before, isAgain);
  });
}

TEST(DetectionDifferentialTest, SamePointsListsAndPicturesOfAWholeGrid) {
  TestImage image = FlatImage({kTurnedTargetSize, kTurnedTargetSize}, 0);
  DrawTurnedTarget(image.Data());
  SideBySide forms;
  EXPECT_EQ(CompareDetections(forms, image, {}, {}, false), "");
  EXPECT_EQ(CompareDetections(forms, FlatImage({40, 40}, 255), {}, {}, true), "");
}

// That the boards above are found is what makes the comparison worth its time.
TEST(DetectionDifferentialTest, MostSoftBoardsAreFound) {
  const SideBySide directory;
  int found = 0;
  for (std::uint32_t seed = 1; seed <= 6; ++seed) {
    CaseRandom random(seed);
    TestImage image = RandomTarget(random, true);
    PointList points;
    found += ::SingleCamDetectCalibrationPoint(image.Data(), image.width, image.height, 8, 20, 20,
                                               0.0f, 0.0f, 300, points)
                 ? 1
                 : 0;
  }
  EXPECT_GE(found, 4);
}

}  // namespace
}  // namespace quorvex::tests
