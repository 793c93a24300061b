#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "interface/quorvex.h"
#include "tests/reference/interface.h"
#include "tests/support/list_difference.h"
#include "tests/support/list_drive.h"
#include "tests/support/message_box.h"
#include "tests/support/random_board.h"
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

// A light board in the dark with dark marks on it; soft strokes are found, hard ones make gradients
// that count as negative.
TestImage BoardImage(CaseRandom& random, bool isSoft) {
  const int size = random.OneOf({440, 480, 500});
  TestImage image = FlatImage({size, size}, 0);
  const int margin = random.Between(4, 30);
  for (int y = margin; y < size - margin; ++y) {
    for (int x = margin; x < size - margin; ++x) {
      image.At(x, y) = 100;
    }
  }
  const bool isComplete = random.OneIn(2);
  const int pitch = random.Between(120, 140);
  const int centre = size / 2 + random.Between(-12, 12);
  const unsigned char stroke = isSoft ? 75 : 20;
  DrawBoard(random, {100, stroke, pitch, isComplete}, centre, centre, image);
  if (random.OneIn(3)) {
    for (unsigned char& pixel : image.pixels) {
      pixel = static_cast<unsigned char>(pixel + random.Below(4));
    }
  }
  return image;
}

TestImage ParallelLines(CaseRandom& random) {
  TestImage image = FlatImage({360, 360}, 120);
  const int distance = random.Between(8, 40);
  const int slant = random.Between(-40, 40);
  for (int x = -60; x < 420; x += distance) {
    DrawLine(x, 0, x + slant, 359, 3, 95, image);
  }
  return image;
}

// An input for each way out of the detection.
TestImage RandomInput(CaseRandom& random) {
  switch (random.Below(10)) {
    case 0:
      return FlatImage({200, 240}, random.OneOf<unsigned char>({0, 79, 80, 255}));
    case 1:
      return ParallelLines(random);
    case 2: {
      const int width = 4 * random.Between(1, 60);
      const int height = 4 * random.Between(1, 60);
      return RandomImage(random, {width, height}, {80, 79, 81, 0, 255});
    }
    case 3: {
      // Sizes that are no multiples of 4 are refused with a message.
      const ImageSize size = RandomSize(random, 40);
      return RandomImage(random, size, {80, 79, 81, 0, 255});
    }
    case 4: {
      // A board whose middle is empty: no centre mark.
      TestImage image = BoardImage(random, true);
      const int middle = image.width / 2;
      for (int y = middle - 75; y < middle + 75; ++y) {
        for (int x = middle - 75; x < middle + 75; ++x) {
          image.At(x, y) = 100;
        }
      }
      return image;
    }
    case 5:
      return BoardImage(random, false);
    default:
      return BoardImage(random, true);
  }
}

// What a caller's list may hold before.
PointList RandomList(CaseRandom& random) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  PointList points;
  for (int i = random.OneOf({0, 0, 0, 1, 3}); i > 0; --i) {
    CalibrationPoint point = {};
    point.id = random.Between(-2, 9);
    point.row = random.Between(-1, 3);
    point.col = random.Between(-1, 3);
    point.x = random.OneIn(5) ? random.OneOf({kNaN, -1.0f, 1e9f}) : random.Fraction(0, 500);
    point.y = random.OneIn(5) ? random.OneOf({kNaN, -1.0f, 1e9f}) : random.Fraction(0, 500);
    points.push_back(point);
  }
  return points;
}

TEST(DetectionDifferentialTest, SamePointsListsAndPictures) {
  SideBySide forms;
  ExpectSameOnCases(60, [&forms](CaseRandom& random) {
    const TestImage image = RandomInput(random);
    Parameters parameters;
    if (random.OneIn(3)) {
      parameters.rowSpan = random.OneOf({0, 1, 2, 20});
      parameters.columnSpan = random.OneOf({0, 1, 2, 20});
      parameters.rowSteps = random.OneOf({0, 121, 122, 500});
    }
    const PointList before = RandomList(random);
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
    TestImage image = BoardImage(random, true);
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
