#include "tools/report/report_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::StartsWith;

constexpr const char* kEnd = "</script>";
constexpr std::size_t kCharacters = 50'000;

class ReportPageTest : public testing::Test {
 protected:
  void Write(const std::vector<ReportedPicture>& pictures) {
    ReportPage page(folder.Path("index.html"), run, pictures.size());
    for (const ReportedPicture& picture : pictures) {
      page.Add(picture);
    }
    page.Commit();
    text = ReadWhole(folder.Path("index.html"));
  }

  // What stands in the element that begins so.
  std::string Element(const std::string& start) const {
    const std::size_t at = text.find(start);
    if (at == std::string::npos) {
      return "no " + start;
    }
    const std::size_t first = text.find('>', at) + 1;
    return text.substr(first, text.find(kEnd, first) - first);
  }

  TemporaryFolder folder;
  ReportedRun run;
  std::string text;
};

std::size_t CountIn(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

ReportedPicture NamedPicture(const std::string& name) {
  ReportedPicture picture;
  picture.name = name;
  picture.picture = FlatPicture(400, 200, 90);
  picture.stages = {StripImage("Mask.bmp", FlatPicture(960, 480, 255), kCharacters)};
  return picture;
}

TEST_F(ReportPageTest, HoldsTheRunAndEachPictureInTurn) {
  run.options = "--row-span 7";
  Write({NamedPicture("a.png"), NamedPicture("b.png")});
  EXPECT_EQ(text.find("<!doctype html>"), 0u);
  EXPECT_EQ(CountIn(text, "</html>"), 1u);
  const auto runJson =
      nlohmann::json::parse(Element("<script type=\"application/json\" id=\"run\""));
  EXPECT_EQ(runJson.at("options"), "--row-span 7");
  const auto second =
      nlohmann::json::parse(Element("<script type=\"application/json\" data-picture=\"1\""));
  EXPECT_EQ(second.at("name"), "b.png");
  EXPECT_EQ(second.at("kept").at("width"), 400);
  for (const char* name : {"thumbnail", "view", "Mask.bmp"}) {
    EXPECT_THAT(
        Element(std::string("<script type=\"text/plain\" data-picture=\"1\" data-image=\"") + name),
        StartsWith("data:image/"));
  }
  EXPECT_EQ(CountIn(text, "<script type=\"application/json\""), 3u);
}

TEST_F(ReportPageTest, AllowsItsOwnScriptAndStyleOnly) {
  Write({});
  EXPECT_EQ(CountIn(text, "Content-Security-Policy"), 1u);
  EXPECT_EQ(CountIn(text, "default-src 'none'"), 1u);
  EXPECT_EQ(CountIn(text, "script-src 'sha256-"), 1u);
  EXPECT_EQ(CountIn(text, "unsafe-inline"), 0u);
  EXPECT_EQ(CountIn(text, "<script type=\"module\">"), 1u);
  // Nothing is fetched.
  EXPECT_EQ(CountIn(text, "=\"http"), 0u);
  EXPECT_EQ(CountIn(text, "<link"), 0u);
}

TEST_F(ReportPageTest, NoNameBreaksTheDataOut) {
  Write({NamedPicture("</script><img src=x onerror=alert(1)>")});
  EXPECT_EQ(CountIn(text, "<img src=x"), 0u);
  EXPECT_EQ(nlohmann::json::parse(Element("<script type=\"application/json\" data-picture=\"0\""))
                .at("name"),
            "</script><img src=x onerror=alert(1)>");
}

TEST_F(ReportPageTest, APictureThatCannotBeReadHasNoImages) {
  ReportedPicture picture;
  picture.name = "none.png";
  Write({picture});
  EXPECT_EQ(CountIn(text, "data-image="), 0u);
  EXPECT_EQ(CountIn(text, "<script type=\"application/json\""), 2u);
}

TEST_F(ReportPageTest, ManyPicturesShareThePage) {
  // What no format makes small.
  ReportedPicture noise = NamedPicture("noise.png");
  noise.picture = FlatPicture(1200, 1000, 0);
  std::uint32_t state = 1;
  for (std::uint8_t& level : noise.picture->pixels) {
    state = state * 1664525u + 1013904223u;
    level = static_cast<std::uint8_t>(state >> 24);
  }
  ReportPage page(folder.Path("index.html"), run, 100);
  page.Add(noise);
  page.Commit();
  text = ReadWhole(folder.Path("index.html"));
  const std::string view =
      Element("<script type=\"text/plain\" data-picture=\"0\" data-image=\"view\"");
  EXPECT_LE(view.size(), 520'000u);
  EXPECT_GT(view.size(), 200'000u);
}

TEST_F(ReportPageTest, LeavesNothingUnlessCommitted) {
  {
    ReportPage page(folder.Path("index.html"), run, 1);
    page.Add(NamedPicture("a.png"));
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(ReportPageTest, SaysThatItsFolderIsNotThere) {
  EXPECT_THROW(ReportPage(folder.Path("none/index.html"), run, 1), InputError);
}

TEST(StripImage, IsSmallAndLosslessWhereItIsADrawing) {
  EXPECT_THAT(StripImage("Mask.bmp", FlatPicture(960, 480, 255), kCharacters).dataUri,
              StartsWith("data:image/png"));
  Picture slope = FlatPicture(960, 480, 0);
  for (std::size_t i = 0; i < slope.pixels.size(); ++i) {
    slope.pixels[i] = static_cast<std::uint8_t>(i % 200);
  }
  const ReportedImage photo = StripImage("ProImage.bmp", slope, kCharacters);
  EXPECT_EQ(photo.name, "ProImage.bmp");
  EXPECT_LT(photo.dataUri.size(), kCharacters);
}

// As the edges of a picture full of noise are.
TEST(StripImage, ADrawingThatNothingMakesSmallFits) {
  Picture specks = FlatPicture(1920, 1440, 0);
  std::uint32_t state = 1;
  for (std::uint8_t& level : specks.pixels) {
    state = state * 1664525u + 1013904223u;
    level = state >> 31 == 0 ? 0 : 255;
  }
  EXPECT_LT(StripImage("Sobel.bmp", specks, 20'000).dataUri.size(), 20'000u);
}

TEST(StripImage, TheStagesOfAHundredPicturesTakeHalfOfThePage) {
  EXPECT_LE(100 * 14 * CharactersOfStage(100), 26'000'000u);
  EXPECT_GT(CharactersOfStage(1), CharactersOfStage(100));
}

}  // namespace
}  // namespace quorvex::tests
