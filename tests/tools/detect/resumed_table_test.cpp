#include "tools/detect/resumed_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

constexpr CsvColumns kColumns{true, true, false};

PointsOfImage OnePoint(const std::string& image) {
  return {image, 9, 9, {{1, 0, 0, 1.5, 2.5, PointKind::kSeen}}};
}

std::string Refusal(const TemporaryFolder& folder, const std::string& options) {
  try {
    ResumedTable(folder.Path("a.csv"), kColumns, options);
    return "went on";
  } catch (const InputError& error) {
    return error.what();
  }
}

const std::string kHeader = "image,id,row,col,x,y,kind\n";
const std::string kRow = ",1,0,0,1.5,2.5,seen\n";

TEST(ResumedTable, GrowsAndIsGoneOnWith) {
  const TemporaryFolder folder;
  {
    ResumedTable table(folder.Path("a.csv"), kColumns, "options");
    table.Add(OnePoint("one.png"));
    table.Add(OnePoint("a, \"b\".png"));
    EXPECT_EQ(ReadWhole(folder.Path("a.csv")),
              kHeader + "one.png" + kRow + "\"a, \"\"b\"\".png\"" + kRow);
    EXPECT_TRUE(folder.Has("a.csv.resume"));
  }
  ResumedTable table(folder.Path("a.csv"), kColumns, "options");
  EXPECT_EQ(table.HeldCount(), 2u);
  EXPECT_TRUE(table.Holds("a, \"b\".png"));
  EXPECT_FALSE(table.Holds("three.png"));
  EXPECT_FALSE(table.HoldsFailure());
  table.Finish();
  EXPECT_EQ(folder.FileCount(), 1u);
}

// At every byte where a run may be killed while it writes the second image.
TEST(ResumedTable, CutsOffWhatWasBeingWritten) {
  const std::string whole = kHeader + "one.png" + kRow + "two.png" + kRow + "two.png" + kRow;
  const std::string held = kHeader + "one.png" + kRow;
  for (std::size_t size = held.size(); size <= whole.size(); ++size) {
    const TemporaryFolder folder;
    folder.File("a.csv", whole.substr(0, size));
    folder.File("a.csv.resume", "options\n0\n26\n" + std::to_string(held.size()) + "\n" +
                                    std::to_string(whole.size()));
    const ResumedTable table(folder.Path("a.csv"), kColumns, "options");
    EXPECT_TRUE(table.Holds("one.png"));
    EXPECT_FALSE(table.Holds("two.png"));
    EXPECT_EQ(ReadWhole(folder.Path("a.csv")), held) << size;
  }
}

TEST(ResumedTable, BeginsAnewWhereNotEvenTheHeaderIsThere) {
  const TemporaryFolder folder;
  folder.File("a.csv", "image,i");
  folder.File("a.csv.resume", "options\n0\n");
  const ResumedTable table(folder.Path("a.csv"), kColumns, "options");
  EXPECT_EQ(ReadWhole(folder.Path("a.csv")), kHeader);
}

// A table and its note that were left as they are; neither may be touched.
void ExpectRefusedUntouched(const std::string& table, std::size_t length) {
  const TemporaryFolder folder;
  const std::string note = "options\n0\n" + std::to_string(length) + "\n";
  folder.File("a.csv", table);
  folder.File("a.csv.resume", note);
  EXPECT_THAT(Refusal(folder, "options"),
              HasSubstr("a.csv.resume says that " + std::to_string(length) + " of its " +
                        std::to_string(table.size()) + " bytes are whole, but the rest is not"));
  EXPECT_EQ(ReadWhole(folder.Path("a.csv")), table);
  EXPECT_EQ(ReadWhole(folder.Path("a.csv.resume")), note);
}

TEST(ResumedTable, CutsOffNoMoreThanOneImage) {
  const std::string held = kHeader + "one.png" + kRow;
  ExpectRefusedUntouched(held + "two.png" + kRow + "three.png" + kRow, held.size());
  ExpectRefusedUntouched(held + "two.png" + kRow + "three", held.size());
  ExpectRefusedUntouched(held + "two.png" + kRow + "tw,", held.size());
  ExpectRefusedUntouched(held + "\"a,\"" + kRow + "\"a,b", held.size());
  ExpectRefusedUntouched(held + "one.png" + kRow, held.size());
}

TEST(ResumedTable, CutsOffNothingButItsOwnBeginning) {
  ExpectRefusedUntouched("notes of a person", 0);
  ExpectRefusedUntouched("id,row,col,x,y\n1,0,0,1.5,2.5\n", 0);
  ExpectRefusedUntouched(kHeader + "one.png" + kRow + "two.png" + kRow, 0);
  const TemporaryFolder folder;
  folder.File("a.csv", kHeader + "one.png" + kRow + "one.p");
  folder.File("a.csv.resume", "options\n0\n");
  const ResumedTable table(folder.Path("a.csv"), kColumns, "options");
  EXPECT_FALSE(table.Holds("one.png"));
  EXPECT_EQ(ReadWhole(folder.Path("a.csv")), kHeader);
}

TEST(ResumedTable, ForgetsNotesOnly) {
  const TemporaryFolder folder;
  ForgetStoppedRun(folder.Path("a.csv"));
  for (const char* other : {"", "a sentence\n", "a sentence\nand another\n", "options\n\n12\n"}) {
    folder.File("a.csv.resume", other);
    ForgetStoppedRun(folder.Path("a.csv"));
    EXPECT_TRUE(folder.Has("a.csv.resume")) << other;
  }
  folder.File("a.csv.resume", "--precise\n0\n26\n5");
  ForgetStoppedRun(folder.Path("a.csv"));
  EXPECT_EQ(folder.FileCount(), 0u);
}

TEST(ResumedTable, RefusesOtherOptionsOtherTablesAndDamage) {
  const TemporaryFolder folder;
  const std::string whole = kHeader + "one.png" + kRow;
  folder.File("a.csv", whole);
  folder.File("a.csv.resume", "options\n" + std::to_string(whole.size()) + "\n");
  EXPECT_THAT(Refusal(folder, "others"),
              HasSubstr("begun with other options, \"options\" and not \"others\""));
  folder.File("a.csv", kHeader);
  EXPECT_THAT(
      Refusal(folder, "options"),
      HasSubstr(
          "has 26 bytes where 53 were written; put it back as it was, or remove both it and "));
  std::filesystem::remove(folder.Path("a.csv.resume"));
  folder.File("a.csv", "id,row\n");
  EXPECT_THAT(Refusal(folder, "options"), HasSubstr("its first line is not \"image,id,row"));
  folder.File("a.csv", kHeader + "one.png,1,0");
  EXPECT_THAT(Refusal(folder, "options"), HasSubstr("its last line has no end"));
  EXPECT_EQ(ReadWhole(folder.Path("a.csv")), kHeader + "one.png,1,0");
  EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(ResumedTable, KnowsThatAnImageFailed) {
  const TemporaryFolder folder;
  folder.File("a.csv", kHeader + "one.png,,,,,,failed\n");
  const ResumedTable table(folder.Path("a.csv"), kColumns, "options");
  EXPECT_TRUE(table.Holds("one.png"));
  EXPECT_TRUE(table.HoldsFailure());
}

}  // namespace
}  // namespace quorvex::tests
