// The pictures that every detection leaves behind, one for each of its stages.
#ifndef QUORVEX_TOOLS_DETECT_STAGE_PICTURES_H_
#define QUORVEX_TOOLS_DETECT_STAGE_PICTURES_H_

#include <cstddef>
#include <filesystem>
#include <vector>

#include "tools/report/report_page.h"
#include "tools/report/reported_picture.h"

namespace quorvex::tools {

struct StagePicture {
  const char* file;
  const char* shows;
  const char* healthy;
  StripPicture kind = StripPicture::kAreas;
  bool isPatch = false;  // of the whole picture's size, but black beyond the last mark examined
};

// In the order of the stages; docs/diagnostic-pictures.md has the same words below its headings.
constexpr StagePicture kStagePictures[] = {
    {"ProImage.bmp", "the input", "the picture as the library received it"},
    {"Binarization.bmp", "levels below 80 are black",
     "the board white, its marks and surroundings black"},
    {"Dilation.bmp", "rank filter, dilation",
     "the marks gone or thin, the surroundings solid black"},
    {"Contour.bmp", "outline of the board, found by rays", "one closed grey line around the board",
     StripPicture::kFineLines},
    {"SRegion.bmp", "outside of the outline", "grey outside, black inside"},
    {"Mask.bmp", "inside of the board", "the whole board white, nothing else"},
    {"Region.bmp", "grey values inside", "the board with its marks on black"},
    {"Sobel.bmp", "edges", "the strokes and the board's border, few specks between them",
     StripPicture::kFineLines},
    {"Eliminate.bmp", "edges without border and large blobs",
     "the strokes alone, not touching each other", StripPicture::kFineLines},
    {"CrossMarkRegion.bmp", "patch around the last mark examined", "one cross near the middle"},
    {"Sauvola.bmp", "the patch, binarised", "the cross black on white"},
    {"Thining.bmp", "the patch, thinned", "the cross one pixel wide"},
    {"Lines.bmp", "Hough lines of the last patch", "the two strokes", StripPicture::kFineLines,
     true},
    {"LineSegment.bmp", "strokes longer than 30 px of the last patch",
     "the two strokes without stray pixels", StripPicture::kFineLines, true},
};

// Those that are in the folder and can be read, made small: each takes `characters` of a page at
// most.
std::vector<ReportedImage> ReadStagePictures(const std::filesystem::path& folder,
                                             std::size_t characters);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_STAGE_PICTURES_H_
