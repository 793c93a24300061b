#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"
#include "tools/errors.h"
#include "tools/pictures/picture_file.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"
#include "tools/subcommands.h"

namespace quorvex::tests {

using namespace tools;

namespace {

int RunRenderCommand(std::vector<std::string> arguments) {
  CLI::App app;
  Action action;
  AddRenderCommand(app, action);
  arguments.insert(arguments.begin(), "render");
  std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());  // as CLI11 wants them
  app.parse(reversed);
  return action();
}

// A board that takes a moment only.
std::vector<std::string> Small(const std::string& output, std::vector<std::string> more = {}) {
  std::vector<std::string> arguments = {
      "--quiet", "--output",  output, "--width",        "320", "--height", "240", "--rows",
      "2",       "--columns", "2",    "--focal-length", "420"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

std::string ReadText(const std::string& path) {
  const Bytes bytes = ReadBytes(path);
  return std::string(bytes.begin(), bytes.end());
}

TEST(RenderCommand, WritesPictureAndTruth) {
  const TemporaryFolder folder;
  EXPECT_EQ(RunRenderCommand(Small(folder.Path("a.png"))), kExitSuccess);
  RenderSettings settings = PresetByName("fisheye");
  settings.width = 320;
  settings.height = 240;
  settings.rows = settings.columns = 2;
  settings.focalLength = 420;
  const RenderedTarget expected = RenderTarget(settings);
  EXPECT_EQ(ReadPictureFile(folder.Path("a.png")).pixels, expected.picture.pixels);
  EXPECT_EQ(ReadText(folder.Path("a.csv")), TruthCsv(expected.marks));
  EXPECT_EQ(folder.FileCount(), 2u);
}

TEST(RenderCommand, OptionsOverrideThePresetWhereverTheyStand) {
  const TemporaryFolder folder;
  RunRenderCommand(Small(folder.Path("a.bmp"),
                         {"--seed", "9", "--preset", "easy", "--truth", folder.Path("marks.csv"),
                          "--model", "pinhole", "--distance", "250", "--noise", "3"}));
  RenderSettings settings = PresetByName("easy");
  settings.width = 320;
  settings.height = 240;
  settings.rows = settings.columns = 2;
  settings.focalLength = 420;
  settings.seed = 9;
  settings.model = CameraModel::kPinhole;
  settings.distance = 250;
  settings.noiseSigma = 3;
  const RenderedTarget expected = RenderTarget(settings);
  EXPECT_EQ(ReadPictureFile(folder.Path("a.bmp")).pixels, expected.picture.pixels);
  EXPECT_EQ(ReadText(folder.Path("marks.csv")), TruthCsv(expected.marks));
}

TEST(RenderCommand, MissingMarksReplaceThePresets) {
  const TemporaryFolder folder;
  RunRenderCommand(
      Small(folder.Path("a.bmp"), {"--preset", "dropped", "--missing", "0,1", "--missing", "1,0"}));
  const std::string truth = ReadText(folder.Path("a.csv"));
  std::string flags;
  for (std::size_t end = truth.find('\n', 20); end != std::string::npos;
       end = truth.find('\n', end + 1)) {
    flags += truth[end - 1];
  }
  EXPECT_EQ(flags, "0110");
  EXPECT_EQ(
      RunRenderCommand(Small(folder.Path("a.bmp"), {"--preset", "dropped", "--missing", "none"})),
      0);
  EXPECT_THROW(RunRenderCommand(Small(folder.Path("a.bmp"), {"--preset", "dropped"})), InputError);
}

TEST(RenderCommand, ChessboardStandsWhereTheMarksWould) {
  const TemporaryFolder folder;
  RunRenderCommand(Small(folder.Path("crosses.bmp")));
  RunRenderCommand(
      Small(folder.Path("squares.bmp"), {"--pattern", "chessboard", "--missing", "0,1"}));
  EXPECT_EQ(ReadText(folder.Path("squares.csv")), ReadText(folder.Path("crosses.csv")));
  EXPECT_NE(ReadText(folder.Path("squares.bmp")), ReadText(folder.Path("crosses.bmp")));
}

TEST(RenderCommand, BadUsageIsRefusedAndWritesNothing) {
  const TemporaryFolder folder;
  const std::string output = folder.Path("a.bmp");
  const std::vector<std::vector<std::string>> refused = {
      {"--preset", "nameless"},
      {"--focal-length", "0"},
      {"--missing", "1"},
      {"--missing", "1,2x"},
      {"--missing", "5,5"},
      {"--truth", output},
      {"--truth", folder.Path("absent/a.csv")},
  };
  for (const std::vector<std::string>& arguments : refused) {
    EXPECT_THROW(RunRenderCommand(Small(output, arguments)), InputError) << arguments[1];
  }
  EXPECT_THROW(RunRenderCommand(Small(folder.Path("a.jpg"))), InputError);
  EXPECT_THROW(RunRenderCommand(Small(folder.Path("absent/a.bmp"))), InputError);
  EXPECT_THROW(RunRenderCommand({"--quiet"}), InputError);
  EXPECT_THROW(RunRenderCommand(Small(output, {"--model", "mirror"})), CLI::ParseError);
  EXPECT_THROW(RunRenderCommand(Small(output, {"--seed", "-1"})), CLI::ParseError);
  EXPECT_THROW(RunRenderCommand(Small(output, {"--missing", "4294967296,0"})), InputError);
  EXPECT_THROW(RunRenderCommand(Small(output, {"--missing", " 0,+1"})), InputError);
  EXPECT_EQ(folder.FileCount(), 0u);
}

TEST(RenderCommand, TheTruthCanGoToStandardOutput) {
  const TemporaryFolder folder;
  testing::internal::CaptureStdout();
  EXPECT_EQ(RunRenderCommand(Small(folder.Path("a.png"), {"--truth", "-"})), kExitSuccess);
  const std::string truth = testing::internal::GetCapturedStdout();
  RunRenderCommand(Small(folder.Path("a.png")));
  EXPECT_EQ(truth, ReadText(folder.Path("a.csv")));
  EXPECT_EQ(folder.FileCount(), 2u);
}

TEST(RenderCommand, ListsThePresets) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(RunRenderCommand({"--list-presets"}), kExitSuccess);
  const std::string list = testing::internal::GetCapturedStdout();
  for (const Preset& preset : AllPresets()) {
    EXPECT_NE(list.find(preset.name + " "), std::string::npos) << list;
  }
}

}  // namespace
}  // namespace quorvex::tests
