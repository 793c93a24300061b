// The page that shows a run: one HTML file that needs nothing else, written piece by piece, so that
// memory does not grow with the number of pictures.
#ifndef QUORVEX_TOOLS_REPORT_REPORT_PAGE_H_
#define QUORVEX_TOOLS_REPORT_REPORT_PAGE_H_

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "tools/report/reported_picture.h"
#include "tools/system/staged_file.h"

namespace quorvex::tools {

// One of the pictures that a detection leaves behind.
struct ReportedStage {
  std::string file;
  std::string shows;    // in a few words
  std::string healthy;  // what it looks like when all is well
};

struct ReportedRun {
  bool isDirect = false;  // which detection
  std::string options;    // of the detection, one line
  std::vector<ReportedStage> stages;
  std::vector<std::string> columns;  // of the run's points as CSV
};

class ReportPage {
 public:
  // `pictureCount` settles how much of the page a picture may take: 100 stay under 60 MB, of a few
  // each is whole. Throws InputError (tools/errors.h), as the other calls do.
  ReportPage(const std::filesystem::path& path, const ReportedRun& run, std::size_t pictureCount);

  // In the order of the run.
  void Add(const ReportedPicture& picture);

  // Ends the page and puts it in place; without this nothing is left.
  void Commit();

 private:
  void Append(const std::string& text);
  void AppendImage(const std::string& name, const std::string& dataUri);

  StagedFile file_;
  std::size_t charactersPerPicture_;
  int next_ = 0;  // the number of the next picture
};

// How much of the page each of the pictures' stages may take: of all of them together half of what
// the picture may.
std::size_t CharactersOfStage(std::size_t pictureCount);

// A picture of a stage as the page's strip shows it: small, without loss where it has few grey
// levels, as most have, and that fits. Of fine lines on black nothing gets lost.
enum class StripPicture { kAreas, kFineLines };
ReportedImage StripImage(const std::string& name, const Picture& picture, std::size_t characters,
                         StripPicture kind = StripPicture::kAreas);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_REPORT_REPORT_PAGE_H_
