#include "imageio/diagnostic_place.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "imageio/diagnostic_picture.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

constexpr unsigned char kPixels[4] = {1, 2, 3, 4};

class DiagnosticPlaceTest : public ::testing::Test {
 protected:
  ~DiagnosticPlaceTest() override { PlaceDiagnosticsBy(nullptr); }

 private:
  TemporaryDirectory directory_;
};

const char* IntoFolder(const char* name) {
  static std::string place;
  place = std::string("kept/") + name;
  return place.c_str();
}

TEST_F(DiagnosticPlaceTest, IsTheFixedNameOfItself) {
  EXPECT_STREQ(PlaceOfDiagnostic("./Mask.bmp"), "./Mask.bmp");
  SaveDiagnosticPicture(kPixels, 4, 1, "./Mask.bmp");
  EXPECT_TRUE(fs::exists("Mask.bmp"));
}

TEST_F(DiagnosticPlaceTest, MayBeAnotherFile) {
  SaveDiagnosticPicture(kPixels, 4, 1, "./Mask.bmp");
  fs::create_directory("kept");
  PlaceDiagnosticsBy(IntoFolder);
  SaveDiagnosticPicture(kPixels, 4, 1, "./Sobel.bmp");
  EXPECT_FALSE(fs::exists("Sobel.bmp"));
  EXPECT_EQ(ReadBytes("kept/Sobel.bmp"), ReadBytes("Mask.bmp"));
}

TEST_F(DiagnosticPlaceTest, MayBeNowhere) {
  PlaceDiagnosticsBy([](const char*) -> const char* { return nullptr; });
  SaveDiagnosticPicture(kPixels, 4, 1, "./Mask.bmp");
  EXPECT_TRUE(fs::is_empty("."));
  PlaceDiagnosticsBy(nullptr);
  SaveDiagnosticPicture(kPixels, 4, 1, "./Mask.bmp");
  EXPECT_TRUE(fs::exists("Mask.bmp"));
}

}  // namespace
}  // namespace quorvex::tests
