#include "tools/detect/points_output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_files.h"
#include "tools/lists/points_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

PointsOfImage Line(const char* image, int columns) {
  PointsOfImage list{image, 9, 9, {}};
  for (int col = 0; col < columns; ++col) {
    list.points.push_back({col + 1, 0, col, 1.5 + col, 2.5, PointKind::kSeen});
  }
  return list;
}

PointsOfImage Failed(const char* image) {
  PointsOfImage list{image, 0, 0, {}};
  list.error = "too dark";
  return list;
}

TEST(PointsOutput, ListsAreThoseOfAllImagesTogether) {
  const TemporaryFolder folder;
  const std::vector<PointsOfImage> images{Line("a", 3), Failed("b"), Line("c", 1)};
  const std::pair<OutputFormat, PointsFormat> formats[] = {
      {OutputFormat::kCsv, PointsFormat::kCsv},
      {OutputFormat::kJson, PointsFormat::kJson},
      {OutputFormat::kText, PointsFormat::kText}};
  for (const auto& [format, sameFormat] : formats) {
    OutputSettings settings{folder.Path("a"), format, {true, true, false}, {}, 0};
    const std::unique_ptr<PointsOutput> output = MakePointsOutput(settings);
    for (const PointsOfImage& image : images) output->Add(image);
    EXPECT_FALSE(folder.Has("a"));
    EXPECT_THAT(output->Finish().faults, IsEmpty());
    EXPECT_EQ(ReadWhole(folder.Path("a")), FormatPoints(images, sameFormat, true));
    std::filesystem::remove(folder.Path("a"));
  }
}

TEST(PointsOutput, ABoardTableSaysWhatItLacks) {
  const TemporaryFolder folder;
  const OutputSettings settings{folder.Path("a"), OutputFormat::kVnl, {}, {}, 0};
  const std::unique_ptr<PointsOutput> output = MakePointsOutput(settings);
  output->Add(Line("a", 3));
  output->Add(Failed("b"));
  output->Add(Line("c", 2));
  const OutputReport report = output->Finish();
  EXPECT_THAT(report.faults, ElementsAre(HasSubstr("c: left out of the table: which of the")));
  EXPECT_THAT(report.notes, ElementsAre(HasSubstr("1 rows x 3 columns, the most that were found")));
  EXPECT_EQ(ReadWhole(folder.Path("a")),
            "# filename x y level\na 1.5 2.5 0\na 2.5 2.5 0\na 3.5 2.5 0\nb - - -\nc - - -\n");
}

TEST(PointsOutput, ABoardTableWithoutAnyMarkIsNotWritten) {
  const TemporaryFolder folder;
  const OutputSettings settings{folder.Path("a"), OutputFormat::kVnl, {}, GridSize{3, 3}, 0};
  const std::unique_ptr<PointsOutput> output = MakePointsOutput(settings);
  output->Add(Line("a", 3));
  EXPECT_EQ(output->Finish().faults.size(), 1u);
  EXPECT_EQ(folder.FileCount(), 0u);
}

}  // namespace
}  // namespace quorvex::tests
