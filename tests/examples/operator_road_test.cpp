// The operator's road on a rendered board with five marks left out: every record of every step
// against the rendered truth.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/support/run_program.h"
#include "tests/support/temporary_folder.h"
#include "tools/lists/truth_file.h"

namespace quorvex::tests {

using namespace tools;
namespace {

constexpr int kRows = 9;
constexpr int kColumns = 9;
constexpr double kReach = 20;        // pixels within which a record's mark lies
constexpr double kVisibleError = 1;  // pixels
constexpr double kFilledError = 5;   // pixels; a position predicted from the neighbours
constexpr double kClickError = 6;    // pixels; a point that was added beside its mark

struct Label {
  int id;
  int row;
  int col;
  bool operator==(const Label& other) const {
    return id == other.id && row == other.row && col == other.col;
  }
};
std::ostream& operator<<(std::ostream& stream, const Label& label) {
  return stream << label.id << " (" << label.row << ", " << label.col << ")";
}

struct Record {
  Label label;
  double x;
  double y;
};

struct GridPlace {
  int row;
  int column;
};

// The operator works on the record in the middle of the detected list.
constexpr GridPlace kChosen = {4, 4};

bool IsChosen(const TruthMark& mark) {
  return mark.row == kChosen.row && mark.column == kChosen.column;
}

// The records of each step, by its heading.
std::map<std::string, std::vector<Record>> ReadSteps(const std::string& path) {
  std::map<std::string, std::vector<Record>> steps;
  std::vector<Record>* step = nullptr;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    Record r{};
    if (line.rfind("# ", 0) == 0) {
      step = &steps[line.substr(2)];
    } else if (std::sscanf(line.c_str(), "%d,%d,%d,%lf,%lf", &r.label.id, &r.label.row,
                           &r.label.col, &r.x, &r.y) == 5) {
      step->push_back(r);
    } else {
      EXPECT_EQ(line, "id,row,col,x,y");
    }
  }
  return steps;
}

class OperatorRoad : public testing::Test {
 protected:
  // The suppressions serve builds with a leak checker.
  int Run(const std::string& program, const std::string& arguments) {
    return RunProgram({program,
                       SplitAtBlanks(arguments),
                       folder.Path(),
                       {{"LSAN_OPTIONS", "print_suppressions=0:suppressions=" QUORVEX_LEAKS}},
                       "",
                       "steps.txt"});
  }

  const TruthMark& NearestMark(const Record& r) const {
    const TruthMark* nearest = &marks.front();
    for (const TruthMark& mark : marks) {
      if (std::hypot(r.x - mark.x, r.y - mark.y) < std::hypot(r.x - nearest->x, r.y - nearest->y)) {
        nearest = &mark;
      }
    }
    return *nearest;
  }

  // `order` gives the mark of each record, `label` what the step makes of a mark.
  void ExpectStep(const std::string& heading, const std::vector<GridPlace>& order,
                  const std::function<Label(const TruthMark&)>& label) {
    SCOPED_TRACE(heading);
    const std::vector<Record>& records = steps[heading];
    ASSERT_EQ(records.size(), order.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
      const Record& r = records[i];
      const TruthMark& mark = NearestMark(r);
      const double error = std::hypot(r.x - mark.x, r.y - mark.y);
      ASSERT_LT(error, kReach) << "record " << i;
      EXPECT_EQ(mark.row, order[i].row) << "record " << i;
      EXPECT_EQ(mark.column, order[i].column) << "record " << i;
      EXPECT_EQ(r.label, label(mark)) << "record " << i;
      const bool isClick = heading == "added" && i + 1 == records.size();
      EXPECT_LT(error, isClick          ? kClickError
                       : mark.isMissing ? kFilledError
                                        : kVisibleError)
          << "record " << i;
    }
  }

  TemporaryFolder folder;
  std::vector<TruthMark> marks;
  std::map<std::string, std::vector<Record>> steps;
};

Label RowByRow(const TruthMark& mark) {
  return {mark.row * kColumns + mark.column + 1, mark.row, mark.column};
}

// What was a column is a row, counted from the mark farthest down.
Label ColumnByColumn(const TruthMark& mark) {
  const int column = kRows - 1 - mark.row;
  return {mark.column * kColumns + column + 1, mark.column, column};
}

TEST_F(OperatorRoad, EveryRecordOfEveryStep) {
  ASSERT_EQ(Run(QUORVEX_COMMAND, "render --quiet --preset dropped --output board.bmp"), 0);
  marks = ReadTruthFile(folder.Path("board.csv"));
  ASSERT_EQ(marks.size(), static_cast<std::size_t>(kRows * kColumns));
  ASSERT_EQ(Run(QUORVEX_OPERATOR_ROAD, "board.bmp 9 9"), 0);
  steps = ReadSteps(folder.Path("steps.txt"));
  EXPECT_EQ(steps.size(), 7u);

  std::vector<GridPlace> rowByRow;
  std::vector<GridPlace> columnByColumn;
  std::vector<GridPlace> columnByColumnUpwards;
  static_assert(kRows == kColumns, "one loop for both orders");
  for (int i = 0; i < kRows; ++i) {
    for (int j = 0; j < kRows; ++j) {
      rowByRow.push_back({i, j});
      columnByColumn.push_back({j, i});
      columnByColumnUpwards.push_back({kRows - 1 - j, i});
    }
  }
  std::vector<GridPlace> withoutChosen = rowByRow;
  withoutChosen.erase(withoutChosen.begin() + kChosen.row * kColumns + kChosen.column);
  std::vector<GridPlace> chosenLast = withoutChosen;
  chosenLast.push_back(kChosen);
  ExpectStep("detected", rowByRow, RowByRow);
  ExpectStep("deleted", withoutChosen, RowByRow);
  ExpectStep("added", chosenLast, [](const TruthMark& mark) {
    return IsChosen(mark) ? Label{-1, -1, -1} : RowByRow(mark);
  });
  ExpectStep("moved", chosenLast, [](const TruthMark& mark) {
    return IsChosen(mark) ? Label{-1, 4, 4} : RowByRow(mark);
  });
  ExpectStep("renumbered", columnByColumn, RowByRow);
  ExpectStep("left", columnByColumnUpwards, ColumnByColumn);
  ExpectStep("right", columnByColumn, ColumnByColumn);
}

TEST_F(OperatorRoad, SaysThatThePictureCannotBeRead) {
  EXPECT_EQ(Run(QUORVEX_OPERATOR_ROAD, "none.bmp 9 9"), 1);
  EXPECT_TRUE(ReadSteps(folder.Path("steps.txt")).empty());
}

}  // namespace
}  // namespace quorvex::tests
