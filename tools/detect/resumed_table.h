// A CSV table that grows image by image and that a later run goes on with, even when this one is
// killed.
#ifndef QUORVEX_TOOLS_DETECT_RESUMED_TABLE_H_
#define QUORVEX_TOOLS_DETECT_RESUMED_TABLE_H_

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "tools/detect/points_output.h"

namespace quorvex::tools {

// Beside the table stands, until the run ends, a file of its name with ".resume" after it: a line
// with the options of the run, and after every image a line with the table's length in bytes.
// Whatever the table holds beyond the last whole line's length was being written when the run was
// killed, and is cut off; no more than the rows of one image are. A table without such a file is
// whole.
class ResumedTable : public PointsOutput {
 public:
  // Goes on with the table at `path` or begins it. `options` is one line on everything that changes
  // what is found. Throws InputError (tools/errors.h) when the table there was begun with other
  // options, has other columns, is no such table, or holds more beyond the noted length than one
  // interrupted write leaves; it is then as it was.
  ResumedTable(const std::filesystem::path& path, CsvColumns columns, const std::string& options);

  bool Holds(const std::string& image) const { return held_.count(image) > 0; }
  std::size_t HeldCount() const { return held_.size(); }
  bool HoldsFailure() const { return holdsFailure_; }

  // The rows are in the file when this returns.
  void Add(const PointsOfImage& list) override;
  OutputReport Finish() override;

 private:
  // How much of the table counts.
  std::uint64_t FindLength(const std::string& options) const;
  void ReadHeld(std::uint64_t length);
  // Of what lies beyond the length, which will be cut off.
  void RequireInterruptedWrite() const;
  void Append(const std::string& rows);

  std::filesystem::path path_;
  std::filesystem::path notePath_;
  CsvColumns columns_;
  std::set<std::string> held_;  // images
  bool holdsFailure_ = false;
  std::uint64_t length_ = 0;  // bytes
  std::ofstream table_;
  std::ofstream note_;
};

// For a run that has put another table in place: takes away the file that a stopped run left beside
// the one before.
void ForgetStoppedRun(const std::filesystem::path& table);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_RESUMED_TABLE_H_
