// The exports that edit, renumber and rearrange lists, called one after another on a list of any
// kind, as an operator's clicks do.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "fuzz/run_case.h"
#include "interface/quorvex.h"
#include "tests/reference/postprocess.h"
#include "tests/support/differential_cases.h"
#include "tests/support/list_difference.h"
#include "tests/support/message_box.h"
#include "tests/support/random_grid.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::fuzz {
namespace {

using tests::CaseRandom;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kMostEdits = 40;
constexpr int kKinds = 1'000;  // of reserved bytes, by which points are told apart

float Coordinate(CaseRandom& random, const PointList& points) {
  using Limits = std::numeric_limits<float>;
  if (!points.empty() && random.OneIn(2)) {
    const CalibrationPoint& near = OneOfPoints(random, points);
    const float value = random.OneIn(2) ? near.x : near.y;
    const float off = value + random.OneOf({0.0f, 9.0f, -9.0f, 8.9f, 5.0f, -5.1f});
    return random.OneIn(3) ? std::nextafter(off, random.OneOf({-1e30f, 1e30f})) : off;
  }
  return random.OneIn(2) ? random.Fraction(-1100, 1100)
                         : random.OneOf({Limits::quiet_NaN(), Limits::infinity(),
                                         -Limits::infinity(), Limits::max(), -Limits::max(), 0.0f,
                                         -0.0f, Limits::denorm_min(), 1e9f});
}

int Number(CaseRandom& random, const PointList& points) {
  if (!points.empty() && random.OneIn(2)) {
    const CalibrationPoint& point = OneOfPoints(random, points);
    return random.OneOf({point.id, point.row, point.col});
  }
  return random.OneOf({-1, 0, 1, random.Between(0, 30), kLowest, kHighest, 46341, -65536});
}

bool IsSame(const PointList& one, const PointList& other) {
  return one.size() == other.size() &&
         std::equal(one.begin(), one.end(), other.begin(), [](const auto& a, const auto& b) {
           return std::memcmp(&a, &b, sizeof a) == 0;
         });
}

// An edit changes the list and returns what is wrong with that, or nothing.
using Edit = std::string (*)(CaseRandom& random, PointList& points);

std::string Query(CaseRandom& random, PointList& points) {
  const int id = Number(random, points);
  const PointList before = points;
  int row = -77;
  int col = -78;
  float x = -79.5f;
  float y = -80.5f;
  const bool isFound = QueryCalibrationPt_ID(id, row, col, x, y, points);
  const auto first = std::find_if(before.begin(), before.end(),
                                  [id](const CalibrationPoint& point) { return point.id == id; });
  if (!IsSame(points, before) || isFound != (first != before.end())) {
    return "query: wrong result";
  }
  CalibrationPoint expected = {};
  expected.row = -77;
  expected.col = -78;
  expected.x = -79.5f;
  expected.y = -80.5f;
  if (isFound) {
    expected = *first;
  }
  return row == expected.row && col == expected.col && tests::IsSameFloat(expected.x, x) &&
                 tests::IsSameFloat(expected.y, y)
             ? ""
             : "query: not the first point's values";
}

// The list without the points that an edit has to remove, and whether it said so.
template <typename IsRemoved>
std::string WrongRemoval(const PointList& before, bool hasRemoved, const PointList& after,
                         IsRemoved isRemoved) {
  PointList expected;
  std::remove_copy_if(before.begin(), before.end(), std::back_inserter(expected), isRemoved);
  return IsSame(expected, after) && hasRemoved == (expected.size() != before.size())
             ? ""
             : "removal: another list";
}

std::string DeleteById(CaseRandom& random, PointList& points) {
  const int id = Number(random, points);
  const PointList before = points;
  const bool hasRemoved = DeleteCalibrationPt_ID(id, points);
  return WrongRemoval(before, hasRemoved, points,
                      [id](const CalibrationPoint& point) { return point.id == id; });
}

std::string DeleteByPlace(CaseRandom& random, PointList& points) {
  const float x = Coordinate(random, points);
  const float y = Coordinate(random, points);
  const PointList before = points;
  const bool hasRemoved = DeleteCalibrationPt_Coordinate(x, y, points);
  return WrongRemoval(before, hasRemoved, points, [x, y](const CalibrationPoint& point) {
    return point.x > x - 9.0f && x + 9.0f > point.x && point.y > y - 9.0f && y + 9.0f > point.y;
  });
}

std::string Add(CaseRandom& random, PointList& points) {
  const float x = Coordinate(random, points);
  const float y = Coordinate(random, points);
  const PointList before = points;
  if (!AddCalibrationPt_Coordinate(x, y, points) || points.size() != before.size() + 1) {
    return "addition: no point";
  }
  const CalibrationPoint added = points.back();
  const bool isSame = IsSame(PointList(points.begin(), points.end() - 1), before);
  // Which bytes a new point holds between its fields is not said.
  points.back() = tests::Marked(added, static_cast<int>(points.size()) % kKinds);
  return isSame && added.id == -1 && added.row == -1 && added.col == -1 &&
                 tests::IsSameFloat(x, added.x) && tests::IsSameFloat(y, added.y)
             ? ""
             : "addition: another list";
}

std::string Alter(CaseRandom& random, PointList& points) {
  const int id = Number(random, points);
  const int row = Number(random, points);
  const int col = Number(random, points);
  const float x = Coordinate(random, points);
  const float y = Coordinate(random, points);
  PointList expected = points;
  const auto first = std::find_if(expected.begin(), expected.end(),
                                  [id](const CalibrationPoint& point) { return point.id == id; });
  const bool isThere = first != expected.end();
  if (isThere) {
    first->row = row;
    first->col = col;
    first->x = x;
    first->y = y;
  }
  const bool isAltered = AlterCalibrationPt_Coordinate(id, row, col, x, y, points);
  return isAltered == isThere && IsSame(points, expected) ? "" : "change: another list";
}

// Ids of their places, column by column, by ascending y, and nothing but points of the list.
std::string WrongGrid(const PointList& before, int columns, const PointList& after) {
  for (std::size_t i = 0; i < after.size(); ++i) {
    const CalibrationPoint& point = after[i];
    const bool opensColumn = i == 0 || point.row == 0;
    const int column = i == 0 ? 0 : after[i - 1].col + (opensColumn ? 1 : 0);
    const int row = opensColumn ? 0 : after[i - 1].row + 1;
    if (point.row != row || point.col != column || point.id != row * columns + column + 1) {
      return "renumbering: another number";
    }
    if (!opensColumn && point.y < after[i - 1].y) {
      return "renumbering: a column that is not in order";
    }
    if (std::none_of(before.begin(), before.end(), [&point](const CalibrationPoint& old) {
          return tests::IsSameFloat(old.x, point.x) && tests::IsSameFloat(old.y, point.y);
        })) {
      return "renumbering: a point that was not there";
    }
  }
  return "";
}

std::string Renumber(CaseRandom& random, PointList& points) {
  const int size = static_cast<int>(points.size());
  int columns = Number(random, points);
  int rows = Number(random, points);
  std::vector<int> divisors;
  for (int n = 1; n <= size; ++n) {
    if (size % n == 0) {
      divisors.push_back(n);
    }
  }
  if (!divisors.empty() && !random.OneIn(4)) {
    columns = divisors[static_cast<std::size_t>(random.Below(static_cast<int>(divisors.size())))];
    rows = size / columns;
    if (random.OneIn(8)) {
      columns = -columns;
      rows = -rows;
    }
  }
  const PointList before = points;
  tests::TakeMessages();
  const bool isRenumbered = ReAssignmentID(rows, columns, points);
  const bool fits = static_cast<long long>(rows) * columns == size;
  if (tests::TakeMessages().size() != (fits || size == 0 ? 0u : 1u)) {
    return "renumbering: other messages";
  }
  if (!isRenumbered) {
    return IsSame(points, before) ? "" : "renumbering: failed, but changed";
  }
  return fits && points.size() == before.size() ? WrongGrid(before, columns, points)
                                                : "renumbering: another size";
}

std::string Rearrange(CaseRandom& random, PointList& points) {
  const int count = random.OneIn(2) ? random.Between(0, 8) : Number(random, points);
  const int unused = Number(random, points);
  PointList plain = points;
  if (random.OneIn(2)) {
    plain::LeftPtsRearrange(plain, unused, count);
    ::LeftPtsRearrange(points, unused, count);
  } else {
    plain::RightPtsRearrange(plain, unused, count);
    ::RightPtsRearrange(points, unused, count);
  }
  return tests::ListDifference(plain, points);
}

std::string RunEdits(CaseRandom& random, PointList points) {
  tests::Shuffle(random, points);
  for (std::size_t i = 0; i < points.size(); ++i) {
    points[i] = tests::Marked(points[i], static_cast<int>(i) % kKinds);
  }
  for (int n = random.Below(kMostEdits); n > 0; --n) {
    const Edit edit = random.OneOf<Edit>(
        {Renumber, Rearrange, Add, Alter, DeleteByPlace, DeleteById, Query, Renumber});
    const std::string wrong = edit(random, points);
    if (!wrong.empty()) {
      return wrong;
    }
  }
  return "";
}

std::string EditsOfAGrid(CaseRandom& random) { return RunEdits(random, RandomGridPoints(random)); }
const tests::DifferentialCaseEntry gridEntry("PointEditing.EditsOfAGrid", EditsOfAGrid);

std::string EditsOfALabelledGrid(CaseRandom& random) {
  return RunEdits(random, RandomLabelledGrid(random));
}
const tests::DifferentialCaseEntry labelledEntry("PointEditing.EditsOfALabelledGrid",
                                                 EditsOfALabelledGrid);

std::string EditsOfNothing(CaseRandom& random) { return RunEdits(random, {}); }
const tests::DifferentialCaseEntry emptyEntry("PointEditing.EditsOfNothing", EditsOfNothing);

}  // namespace
}  // namespace quorvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  quorvex::fuzz::RunCase(bytes, size);
  return 0;
}
