#include "tools/detect/stage_pictures.h"

#include <algorithm>
#include <cstddef>

#include "tools/detect/picture_measures.h"
#include "tools/errors.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tools {

namespace {

constexpr int kPatchMargin = 20;  // pixels around what is drawn

// The part that is not black, with a margin; all where there is none.
Picture CutToDrawing(const Picture& picture) {
  const WhitePixels white = FindWhite(picture);
  if (white.count == 0) {
    return picture;
  }
  const int left = std::max(white.left - kPatchMargin, 0);
  const int top = std::max(white.top - kPatchMargin, 0);
  Picture part;
  part.width = std::min(white.right + kPatchMargin + 1, picture.width) - left;
  part.height = std::min(white.bottom + kPatchMargin + 1, picture.height) - top;
  for (int y = top; y < top + part.height; ++y) {
    const auto row = picture.pixels.begin() + static_cast<std::ptrdiff_t>(y) * picture.width;
    part.pixels.insert(part.pixels.end(), row + left, row + left + part.width);
  }
  return part;
}

}  // namespace

std::vector<ReportedImage> ReadStagePictures(const std::filesystem::path& folder,
                                             std::size_t characters) {
  std::vector<ReportedImage> images;
  for (const StagePicture& picture : kStagePictures) {
    try {
      const Picture whole = ReadPictureFile(folder / picture.file);
      images.push_back(StripImage(picture.file, picture.isPatch ? CutToDrawing(whole) : whole,
                                  characters, picture.kind));
    } catch (const InputError&) {
      // A detection that ended early has not got to this stage.
    }
  }
  return images;
}

}  // namespace quorvex::tools
