// The pieces of imageio/ and preprocess/ that have no plain form among the differential tests: what
// their headers say of the results.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "base/gray_image.h"
#include "base/rounding.h"
#include "imageio/bmp_file.h"
#include "imageio/diagnostic_picture.h"
#include "imageio/grey_conversion.h"
#include "preprocess/convolution.h"
#include "preprocess/outline_drawing.h"
#include "preprocess/outline_filter.h"
#include "tests/reference/imageio.h"
#include "tests/support/differential_cases.h"
#include "tests/support/message_box.h"
#include "tests/support/random_image.h"
#include "tests/support/side_by_side.h"

namespace quorvex::fuzz {
namespace {

using tests::Bytes;
using tests::CaseRandom;

constexpr int kMostPixels = 40;  // a side

Bytes RandomBytes(CaseRandom& random, std::size_t size) {
  Bytes bytes(size);
  for (unsigned char& byte : bytes) {
    byte = static_cast<unsigned char>(random.Below(256));
  }
  return bytes;
}

std::string GreyIsTheWeightedSum(CaseRandom& random) {
  const int depth = random.OneOf({24, 32, 24, 32, 8, 0, -24, 25});
  const std::size_t step = depth == 32 ? 4 : 3;
  const int width = random.Between(0, kMostPixels);
  const int height = random.Between(-1, 6);
  const std::size_t count = static_cast<std::size_t>(width * std::max(height, 0));
  const Bytes colours = RandomBytes(random, count * step);
  Bytes grey(count, 77);
  Bytes expected = grey;
  if (depth == 24 || depth == 32) {
    for (std::size_t i = 0; i < count; ++i) {
      const unsigned char* pixel = &colours[i * step];
      expected[i] =
          static_cast<unsigned char>(pixel[1] * 0.587 + pixel[0] * 0.114 + pixel[2] * 0.299);
    }
  }
  tests::TakeMessages();
  ConvertRGBToGray(colours.data(), width, height, depth, grey.data());
  const bool isRefused = depth != 24 && depth != 32;
  if (tests::TakeMessages().size() != (isRefused ? 1u : 0u)) {
    return "other messages";
  }
  return grey == expected ? "" : "another grey";
}
const tests::DifferentialCaseEntry greyEntry("ImagePieces.GreyIsTheWeightedSum",
                                             GreyIsTheWeightedSum);

// Whole files: headers, a ramp of greys and the pixels in one piece, zeros behind them.
Bytes ExpectedFile(std::uint64_t width, std::uint64_t height, int depth, const Bytes& pixels) {
  const int entries = depth == 1 ? 2 : depth == 4 ? 16 : depth == 8 ? 256 : 0;
  Bytes table;
  for (int i = 0; i < entries; ++i) {
    const unsigned char level = static_cast<unsigned char>(i);
    table.insert(table.end(), {level, level, level, 0});
  }
  Bytes image = pixels;
  image.resize((static_cast<std::uint64_t>(depth) * width + 31) / 32 * 4 * height);
  using tests::U16;
  using tests::U32;
  return tests::Concatenated({{'B', 'M'},
                              U32(54 + table.size() + image.size()),
                              U32(0),
                              U32(54 + table.size()),
                              U32(40),
                              U32(width),
                              U32(height),
                              U16(1),
                              U16(static_cast<std::uint64_t>(depth)),
                              U32(0),
                              U32(image.size()),
                              U32(2925),
                              U32(2925),
                              U32(0),
                              U32(0),
                              table,
                              image});
}

std::string SavedFileIsWhole(CaseRandom& random) {
  static const tests::TemporaryDirectory directory;
  std::filesystem::current_path(directory.Path());
  constexpr long kHuge = std::numeric_limits<std::int32_t>::max();
  const int depth = random.OneOf({8, 24, 32, 1, 4, random.Between(-1, 34)});
  const bool isHuge = random.OneIn(8);
  const long width = isHuge ? random.OneOf({kHuge, -kHuge, -1L}) : random.Between(0, kMostPixels);
  const long height = isHuge ? kHuge : random.Between(0, 9);
  const bool canBeStored = depth >= 1 && depth <= 32 && !isHuge;
  const Bytes pixels =
      RandomBytes(random, canBeStored ? static_cast<std::size_t>(depth * width * height / 8) : 4);
  std::filesystem::remove("saved.bmp");
  const bool isSaved = Save_Image(pixels.data(), width, height, depth, "saved.bmp");
  if (isSaved != (canBeStored && (pixels.data() != nullptr || pixels.empty()))) {
    return "wrong result";
  }
  if (!isSaved) {
    return std::filesystem::exists("saved.bmp") ? "a file that was refused" : "";
  }
  return tests::ReadBytes("saved.bmp") == ExpectedFile(static_cast<std::uint64_t>(width),
                                                       static_cast<std::uint64_t>(height), depth,
                                                       pixels)
             ? ""
             : "another file";
}
const tests::DifferentialCaseEntry savingEntry("ImagePieces.SavedFileIsWhole", SavedFileIsWhole);

// One after another under the same name, larger and smaller.
std::string PicturesReplaceEachOther(CaseRandom& random) {
  tests::SideBySide& forms = tests::SharedSideBySide();
  for (int n = random.Between(1, 3); n > 0; --n) {
    const tests::ImageSize size = tests::RandomSize(random, kMostPixels);
    const tests::TestImage image = tests::RandomImage(random, size, {0, 255, 10});
    forms.RunAgain(
        [&] { plain::SaveDiagnosticPicture(image.Data(), size.width, size.height, "./Mask.bmp"); },
        [&] { SaveDiagnosticPicture(image.Data(), size.width, size.height, "./Mask.bmp"); });
  }
  return forms.FileDifference();
}
const tests::DifferentialCaseEntry picturesEntry("ImagePieces.PicturesReplaceEachOther",
                                                 PicturesReplaceEachOther);

std::string ConvolutionIsTheSum(CaseRandom& random) {
  const tests::ImageSize size = tests::RandomSize(random, kMostPixels);
  const tests::TestImage input =
      tests::RandomImage(random, size, {0, 255, 100, 128}, tests::RowLength::kBitmap);
  std::vector<float> kernel;
  for (int i = 0; i < 9; ++i) {
    kernel.push_back(random.OneIn(20) ? random.OneOf({1e30f, -1e30f, 1e-30f})
                                      : random.OneOf({0.0f, 1.0f, -1.0f, 2.0f, -2.0f, 0.3f}));
  }
  const float scale = random.OneOf({1.0f, 1.0f / 9.0f, -1.0f, 0.0f});
  tests::TestImage expected = input;
  tests::TestImage source = input;
  for (int y = 1; y + 1 < size.height; ++y) {
    for (int x = 1; x + 1 < size.width; ++x) {
      float sum = 0.0f;
      for (int i = 0; i < 9; ++i) {
        sum += kernel[static_cast<std::size_t>(i)] *
               static_cast<float>(source.At(x - 1 + i % 3, y + 1 - i / 3));
      }
      const float level = std::fabs(sum * scale);
      expected.At(x, y) = level > 255.0f ? 255 : static_cast<unsigned char>(RoundHalfUp(level));
    }
  }
  tests::TestImage image = input;
  const bool isDone =
      Convolve3x3(image.Data(), size.width, size.height, kernel.data(), scale, 0, 0, 0, 0);
  return isDone ? tests::FirstDifference(expected, image) : "no result";
}
const tests::DifferentialCaseEntry convolutionEntry("ImagePieces.ConvolutionIsTheSum",
                                                    ConvolutionIsTheSum);

// Points inside and around the image, as far as rays lead.
std::string OutlinesKeepTheirPoints(CaseRandom& random) {
  const tests::ImageSize size = tests::RandomSize(random, 400);
  tests::TestImage image = tests::FlatImage(size, 0);
  OutlineList outline;
  for (int n = random.Below(30); n > 0; --n) {
    const int x = random.Between(-2, size.width + 2);
    outline.push_back({x, random.Between(-2, size.height + 2)});
  }
  OutlineList filtered = outline;
  const bool isFiltered = FilterOutlinePoints(filtered, size.width / 2, size.height / 2);
  if (isFiltered != (outline.size() >= 3) || filtered.size() > outline.size()) {
    return "wrong filter";
  }
  if (isFiltered && !(filtered.front() == outline.front() && filtered.back() == outline.back())) {
    return "the filter takes an end";
  }
  const OutlineList before = filtered;
  const bool isDrawn = DrawOutline(image.Data(), size.width, size.height, filtered);
  if (isDrawn != (before.size() >= 2) ||
      !std::equal(before.begin(), before.end(), filtered.begin())) {
    return "wrong drawing";
  }
  for (const PixelPosition& point : filtered) {
    if (isDrawn && IsInside(point.x, point.y, size.width, size.height) &&
        image.At(point.x, point.y) != 128) {
      return "a point that is not drawn";
    }
  }
  return "";
}
const tests::DifferentialCaseEntry outlineEntry("ImagePieces.OutlinesKeepTheirPoints",
                                                OutlinesKeepTheirPoints);

}  // namespace
}  // namespace quorvex::fuzz
