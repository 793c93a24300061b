// The whole detection, and what a host does with its list.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "fuzz/bent_board.h"
#include "fuzz/run_case.h"
#include "interface/quorvex.h"
#include "tests/reference/postprocess.h"
#include "tests/support/differential_cases.h"
#include "tests/support/list_difference.h"
#include "tests/support/list_drive.h"
#include "tests/support/message_box.h"
#include "tests/support/patches.h"
#include "tests/support/random_target.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::fuzz {
namespace {

using tests::CaseRandom;
using tests::TestImage;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

struct Call {
  TestImage image;
  bool hasImage = true;
  long width = 0;
  long height = 0;
  int bitsPerPixel = 8;
  int rowSpan = 20;
  int columnSpan = 20;
  float unused = 0.0f;
  int rowSteps = 300;
  PointList before;
};

// No larger ones: a grid whose rows cross may grow as far as the span lets it.
int AnySpan(CaseRandom& random) { return random.OneOf({20, 0, 1, 2, 100, -1, kLowest}); }

// Mostly with the parameters that serve, or nothing would be found.
Call RandomCall(CaseRandom& random, const TestImage& image) {
  Call call;
  call.image = image;
  call.width = image.width;
  call.height = image.height;
  if (random.OneIn(3)) {
    call.rowSpan = AnySpan(random);
    call.columnSpan = AnySpan(random);
    call.rowSteps = random.OneOf({300, 0, 121, 122, 200, 1000, -1, kLowest, kHighest});
    call.unused = random.OneOf({kNan, 3e38f, -1.0f});
  }
  if (random.OneIn(20)) {
    call.bitsPerPixel = random.OneOf({0, 1, 24, 32, -8, kLowest, kHighest});
  }
  if (random.OneIn(20)) {
    (random.OneIn(2) ? call.width : call.height) =
        random.OneOf({0L, -4L, 3L, std::numeric_limits<long>::min()});
  }
  call.hasImage = !random.OneIn(40);
  call.before = tests::RandomListBefore(random);
  return call;
}

bool Detect(Call& call, PointList& points) {
  return SingleCamDetectCalibrationPoint(
      call.hasImage ? call.image.Data() : nullptr, call.width, call.height, call.bitsPerPixel,
      call.rowSpan, call.columnSpan, call.unused, call.unused, call.rowSteps, points);
}

bool IsAccepted(const Call& call) {
  return call.hasImage && call.bitsPerPixel == 8 && call.width >= 4 && call.height >= 4;
}

bool HasWholeSize(const Call& call) { return call.width % 4 == 0 && call.height % 4 == 0; }

// Ordered by id, inside the picture and, of an empty list, numbered by the same count of columns.
std::string WrongPoints(const Call& call, const PointList& points) {
  int columns = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const CalibrationPoint& point = points[i];
    if (i > 0 && points[i - 1].id > point.id) {
      return "not in the order of the ids";
    }
    if (point.x < 0.0f || point.x > static_cast<float>(call.width - 1) || point.y < 0.0f ||
        point.y > static_cast<float>(call.height - 1)) {
      return "a point outside the picture";
    }
    if (!call.before.empty()) {
      continue;
    }
    if (std::isnan(point.x) || std::isnan(point.y)) {
      return "a point without a place";
    }
    const int rest = point.id - 1 - point.col;
    if (point.row == 0 ? rest != 0 : rest % point.row != 0) {
      return "an id that is not its row's and column's";
    }
    if (point.row != 0) {
      if (columns != 0 && rest / point.row != columns) {
        return "ids of two counts of columns";
      }
      columns = rest / point.row;
    }
  }
  return "";
}

std::string WrongFiles(const Call& call) {
  const tests::Picture picture = tests::ReadPicture("ProImage.bmp");
  return picture.width == call.width && picture.height == call.height &&
                 picture.pixels == call.image.pixels
             ? ""
             : "another picture of the input";
}

std::string WrongResult(const Call& call, bool result, const PointList& points) {
  const std::vector<std::string> messages = tests::TakeMessages();
  const bool showsMessage = IsAccepted(call) && !HasWholeSize(call);
  if (messages.size() != (showsMessage ? 1u : 0u)) {
    return "other messages";
  }
  if (!IsAccepted(call) || !HasWholeSize(call)) {
    return result ? "a refused input gives a result" : tests::ListDifference(call.before, points);
  }
  const std::string wrong = WrongFiles(call);
  if (!wrong.empty()) {
    return wrong;
  }
  return result ? WrongPoints(call, points) : tests::ListDifference(call.before, points);
}

// For either camera.
std::string WrongRearrangement(const PointList& points, int count) {
  PointList plain = points;
  PointList fast = points;
  plain::LeftPtsRearrange(plain, 0, count);
  ::LeftPtsRearrange(fast, 0, count);
  const std::string difference = tests::ListDifference(plain, fast);
  if (!difference.empty()) {
    return difference;
  }
  plain = points;
  fast = points;
  plain::RightPtsRearrange(plain, 0, count);
  ::RightPtsRearrange(fast, 0, count);
  return tests::ListDifference(plain, fast);
}

std::string WrongDetection(CaseRandom& random, const TestImage& image) {
  static const tests::TemporaryDirectory directory;
  std::filesystem::current_path(directory.Path());
  const tests::ListDrive drive;
  Call call = RandomCall(random, image);
  tests::TakeMessages();
  PointList points = call.before;
  const bool result = Detect(call, points);
  const std::string wrong = WrongResult(call, result, points);
  if (!wrong.empty()) {
    return wrong;
  }
  if (call.image.pixels != image.pixels) {
    return "the input is changed";
  }
  if (random.OneIn(4)) {
    PointList again = call.before;
    const bool isSame = Detect(call, again) == result;
    const std::string difference = isSame ? tests::ListDifference(points, again) : "the result";
    if (!difference.empty()) {
      return "again: " + difference;
    }
  }
  return WrongRearrangement(points, random.Between(0, 9));
}

std::string AnyPicture(CaseRandom& random) {
  return WrongDetection(random, tests::RandomDetectionInput(random));
}
const tests::DifferentialCaseEntry anyEntry("Detection.AnyPicture", AnyPicture);

std::string BentBoard(CaseRandom& random) {
  return WrongDetection(random, RandomBentBoard(random));
}
const tests::DifferentialCaseEntry boardEntry("Detection.BentBoard", BentBoard);

}  // namespace
}  // namespace quorvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  quorvex::fuzz::RunCase(bytes, size);
  return 0;
}
