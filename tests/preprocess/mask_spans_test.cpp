#include "preprocess/mask_spans.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/text_image.h"

namespace quorvex::tests {
namespace {

using Spans = std::vector<std::pair<int, int>>;

Spans PairsOf(const PixelSpanList& list) {
  Spans spans;
  for (const PixelSpan& span : list) {
    spans.emplace_back(span.first, span.last);
  }
  return spans;
}

Spans RowSpans(const std::vector<std::string>& rows) {
  const GrayImage mask = ImageOf(rows);
  return PairsOf(ComputeRowSpans(mask.Data(), mask.Width(), mask.Height()));
}

Spans ColumnSpans(const std::vector<std::string>& rows) {
  const GrayImage mask = ImageOf(rows);
  return PairsOf(ComputeColumnSpans(mask.Data(), mask.Width(), mask.Height()));
}

TEST(MaskSpans, RowsFromRowZero) {
  EXPECT_EQ(RowSpans({"....",  //
                      "#..#",  //
                      "..##"}),
            (Spans{{0, 3}, {1, 2}, {0, 1}}));
}

TEST(MaskSpans, ColumnsFromColumnZero) {
  EXPECT_EQ(ColumnSpans({".##",  //
                         "..#",  //
                         "#..",  //
                         "##."}),
            (Spans{{0, 1}, {1, 2}, {2, 3}}));
}

TEST(MaskSpans, GapsBelongToTheSpan) {
  EXPECT_EQ(RowSpans({"#.##.#"}), (Spans{{1, 4}}));
  EXPECT_EQ(ColumnSpans({".", "#", "#", "."}), (Spans{{0, 3}}));
}

TEST(MaskSpans, LineWithoutMaskHasTheEmptySpan) {
  EXPECT_EQ(RowSpans({"####", "####"}), (Spans{{4, 0}, {4, 0}}));
  EXPECT_EQ(ColumnSpans({"##", "##", "##"}), (Spans{{3, 0}, {3, 0}}));
}

TEST(MaskSpans, SinglePixelHasTheEmptySpan) {
  EXPECT_EQ(RowSpans({"#.##", ".###", "###."}), (Spans{{4, 0}, {4, 0}, {4, 0}}));
  EXPECT_EQ(ColumnSpans({"#.#", "##.", ".##"}), (Spans{{3, 0}, {3, 0}, {3, 0}}));
  EXPECT_EQ(RowSpans({"."}), (Spans{{1, 0}}));
}

TEST(MaskSpans, TwoPixelsAreASpan) {
  EXPECT_EQ(RowSpans({"..##", "##.."}), (Spans{{0, 1}, {2, 3}}));
}

TEST(MaskSpans, OtherLevelsAreNoMask) {
  EXPECT_EQ(RowSpans({"o..-"}), (Spans{{1, 2}}));
  GrayImage mask(4, 1);
  mask.Fill(254);
  EXPECT_EQ(PairsOf(ComputeRowSpans(mask.Data(), 4, 1)), (Spans{{4, 0}}));
}

}  // namespace
}  // namespace quorvex::tests
