#include "tools/pictures/pgm_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/bytes.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

Bytes FromText(const std::string& text) { return Bytes(text.begin(), text.end()); }

Picture Decode(const std::string& text, std::optional<GreyLevels> levels = std::nullopt) {
  return DecodePgm(FromText(text), "a.pgm", levels);
}

std::string Refusal(const std::string& text) {
  try {
    Decode(text);
    return "was read";
  } catch (const InputError& error) {
    return error.what();
  }
}

TEST(ReadPgm, KeepsEightBitsAndSkipsComments) {
  const Picture picture = Decode("P5 # made by hand\n3\n# 2 rows\n2 255\nabcdef, ignored");
  EXPECT_EQ(picture.width, 3);
  EXPECT_EQ(picture.height, 2);
  EXPECT_EQ(picture.bitsPerSample, 8);
  EXPECT_THAT(picture.pixels, ElementsAre('a', 'b', 'c', 'd', 'e', 'f'));
}

TEST(ReadPgm, ScalesByTheLargestValueOfTheHeader) {
  EXPECT_THAT(Decode(std::string("P5 3 1 15\n\0\7\17", 13)).pixels, ElementsAre(0, 119, 255));
  const std::string deep("P5 3 1 4095\n\0\0\10\0\17\377", 18);
  EXPECT_THAT(Decode(deep).pixels, ElementsAre(0, 128, 255));
  EXPECT_EQ(Decode(deep).bitsPerSample, 16);
  EXPECT_THAT(Decode(deep, GreyLevels{0, 2048}).pixels, ElementsAre(0, 255, 255));
}

TEST(ReadPgm, ReadsText) {
  EXPECT_THAT(Decode("P2\n2 2\n1000\n0 500\n1000 2").pixels, ElementsAre(0, 128, 255, 1));
}

TEST(ReadPgm, RefusesWhatIsNotThereAndWhatCannotBe) {
  EXPECT_THAT(Refusal("P5 3"), HasSubstr("cannot read a.pgm: the file ends before its height"));
  EXPECT_THAT(Refusal("P5 x 2 255\n"), HasSubstr("its width is not a number"));
  EXPECT_THAT(Refusal("P5 0 2 255\n"), HasSubstr("width of 0 pixels is out of range"));
  EXPECT_THAT(Refusal("P5 2 32769 255\n"), HasSubstr("height of 32769 pixels is out of range"));
  EXPECT_THAT(Refusal("P5 2 99999999999 255\n"), HasSubstr("height is larger than 65535"));
  EXPECT_THAT(Refusal("P5 1 1 0\na"), HasSubstr("largest value is 0"));
  EXPECT_THAT(Refusal("P5 1 1 65536\na"), HasSubstr("largest value is larger than 65535"));
  EXPECT_THAT(Refusal("P5 1 1 255"), HasSubstr("no blank stands between"));
  EXPECT_THAT(Refusal("P5 3 2 255\nabcde"), HasSubstr("3 x 2 pixels need 6 bytes, but 5 are left"));
  EXPECT_THAT(Refusal("P5 32768 32768 65535\nab"), HasSubstr("need 2147483648 bytes"));
  EXPECT_THAT(Refusal("P5 1 1 20\nz"),
              HasSubstr("a pixel of 122 is above its largest value of 20"));
  EXPECT_THAT(Refusal("P2 2 2 255\n1 2 3 x"), HasSubstr("its next pixel is not a number"));
  EXPECT_THAT(Refusal("P2 2 1 255\n255   "), HasSubstr("the file ends before its next pixel"));
}

TEST(IsPgm, LooksAtTheNumberAndTheBlank) {
  EXPECT_TRUE(IsPgm(FromText("P5\n")));
  EXPECT_TRUE(IsPgm(FromText("P2#")));
  EXPECT_FALSE(IsPgm(FromText("P6\n")));
  EXPECT_FALSE(IsPgm(FromText("P5")));
  EXPECT_FALSE(IsPgm(FromText("P512")));
}

}  // namespace
}  // namespace quorvex::tests
