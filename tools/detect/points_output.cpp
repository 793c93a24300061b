#include "tools/detect/points_output.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/lists/board_table.h"
#include "tools/lists/option_text.h"
#include "tools/lists/points_file.h"
#include "tools/lists/points_json.h"
#include "tools/lists/points_opencv.h"
#include "tools/lists/points_vnl.h"
#include "tools/system/output_file.h"
#include "tools/system/text_spool.h"

namespace quorvex::tools {
namespace {

constexpr std::size_t kMemoryForText = 4u << 20;  // bytes; a thousand images of 80 points

class ListOutput : public PointsOutput {
 public:
  explicit ListOutput(const OutputSettings& settings)
      : settings_(settings), spool_(kMemoryForText) {}

  void Add(const PointsOfImage& list) override {
    switch (settings_.format) {
      case OutputFormat::kJson:
        spool_.Append((isEmpty_ ? "[\n" : ",\n") + FormatJsonImage(list));
        break;
      case OutputFormat::kText:
        spool_.Append(FormatPoints({list}, PointsFormat::kText, false));
        break;
      default:
        spool_.Append((isEmpty_ ? FormatCsvHeader(settings_.columns) : "") +
                      FormatCsvRows(list, settings_.columns));
    }
    isEmpty_ = false;
  }

  OutputReport Finish() override {
    if (settings_.format == OutputFormat::kJson) {
      spool_.Append(isEmpty_ ? "[\n]\n" : "\n]\n");
    }
    spool_.WriteTo(settings_.path);
    return {};
  }

 private:
  OutputSettings settings_;
  TextSpool spool_;
  bool isEmpty_ = true;
};

class BoardOutput : public PointsOutput {
 public:
  explicit BoardOutput(const OutputSettings& settings) : settings_(settings) {}

  void Add(const PointsOfImage& list) override { images_.push_back(list); }

  OutputReport Finish() override {
    const BoardTable table = ArrangeOnBoard(images_, settings_.board);
    OutputReport report;
    bool hasMarks = false;
    for (std::size_t i = 0; i < images_.size(); ++i) {
      hasMarks = hasMarks || table.views[i].leftOut.empty();
      // What failed was said already.
      if (images_[i].error.empty() && !table.views[i].leftOut.empty()) {
        report.faults.push_back(
            fmt::format("{}: left out of the table: {}", images_[i].image, table.views[i].leftOut));
      }
    }
    if (!settings_.board) {
      report.notes.push_back(
          fmt::format("the table takes the board for {0} rows x {1} columns, the most that were "
                      "found; --expect {0}x{1} states its size",
                      table.board.rows, table.board.columns));
    }
    if (hasMarks) {
      WriteText(settings_.path, settings_.format == OutputFormat::kVnl
                                    ? FormatPointsVnl(table)
                                    : FormatPointsOpencv(table, settings_.pitch));
    }
    return report;
  }

 private:
  OutputSettings settings_;
  std::vector<PointsOfImage> images_;
};

}  // namespace

std::unique_ptr<PointsOutput> MakePointsOutput(const OutputSettings& settings) {
  if (IsBoardTable(settings.format)) {
    return std::make_unique<BoardOutput>(settings);
  }
  return std::make_unique<ListOutput>(settings);
}

}  // namespace quorvex::tools
