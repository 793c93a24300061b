#include "tools/report/report_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "tools/pictures/shrinking.h"
#include "tools/report/data_uri.h"
#include "tools/report/report_json.h"
#include "tools/report/viewer_text.h"

namespace quorvex::tools {
namespace {

// Characters of the page. A browser reads some 60 MB in a second or two.
constexpr std::size_t kMostOfAll = 52'000'000;  // leaves room for the viewer and the lists
constexpr std::size_t kMostOfOne = 12'000'000;  // a picture of 12 megapixels, whole
constexpr std::size_t kFewestOfOne = 60'000;    // less would not show the marks
constexpr std::size_t kStages = 14;             // with a picture each
constexpr std::size_t kMostOfStage = 100'000;   // enough for all but noise
constexpr std::size_t kFewestOfStage = 6'000;

constexpr int kThumbnailSide = 160;  // pixels
constexpr int kThumbnailQuality = 75;
constexpr int kStripSide = 480;
constexpr int kMostLevelsDrawn = 8;  // a camera's picture has more

bool IsDrawing(const Picture& picture) {
  std::array<bool, 256> levels{};
  for (const std::uint8_t level : picture.pixels) {
    levels[level] = true;
  }
  return std::count(levels.begin(), levels.end(), true) <= kMostLevelsDrawn;
}

std::size_t CharactersOfPicture(std::size_t pictureCount) {
  return std::clamp(kMostOfAll / std::max<std::size_t>(pictureCount, 1), kFewestOfOne, kMostOfOne);
}

}  // namespace

std::size_t CharactersOfStage(std::size_t pictureCount) {
  return std::clamp(CharactersOfPicture(pictureCount) / 2 / kStages, kFewestOfStage, kMostOfStage);
}

ReportedImage StripImage(const std::string& name, const Picture& picture, std::size_t characters,
                         StripPicture kind) {
  const PictureSize size = SizeWithin(picture, kStripSide);
  const Picture small = kind == StripPicture::kFineLines
                            ? ShrinkBrightest(picture, size.width, size.height)
                            : ShrinkPicture(picture, size.width, size.height);
  if (IsDrawing(picture)) {
    std::string lossless = PngUri(small);
    if (lossless.size() <= characters) {
      return {name, std::move(lossless)};
    }
  }
  return {name, FitPhoto(small, characters).dataUri};
}

ReportPage::ReportPage(const std::filesystem::path& path, const ReportedRun& run,
                       std::size_t pictureCount)
    : file_(path), charactersPerPicture_(CharactersOfPicture(pictureCount)) {
  Append(kViewerStart);
  Append(fmt::format("<script type=\"application/json\" id=\"run\">{}</script>\n",
                     RunJson(run, kViewerVersion)));
}

void ReportPage::Add(const ReportedPicture& picture) {
  std::size_t characters = charactersPerPicture_;
  for (const ReportedImage& stage : picture.stages) {
    characters -= std::min(characters, stage.dataUri.size());
  }
  FittedPhoto photo;
  if (picture.picture) {
    photo = FitPhoto(*picture.picture, std::max(characters, kFewestOfOne));
  }
  Append(fmt::format("<script type=\"application/json\" data-picture=\"{}\">{}</script>\n", next_,
                     PictureJson(picture, photo)));
  if (picture.picture) {
    AppendImage("thumbnail",
                PhotoUri(ShrinkToSide(*picture.picture, kThumbnailSide), kThumbnailQuality));
    AppendImage("view", photo.dataUri);
  }
  for (const ReportedImage& stage : picture.stages) {
    AppendImage(stage.name, stage.dataUri);
  }
  ++next_;
}

void ReportPage::Commit() {
  Append(kViewerEnd);
  file_.Commit();
}

void ReportPage::Append(const std::string& text) { file_.Append(text.data(), text.size()); }

// The names are the command's own.
void ReportPage::AppendImage(const std::string& name, const std::string& dataUri) {
  Append(
      fmt::format("<script type=\"text/plain\" data-picture=\"{}\" data-image=\"{}\">{}</script>\n",
                  next_, name, dataUri));
}

}  // namespace quorvex::tools
