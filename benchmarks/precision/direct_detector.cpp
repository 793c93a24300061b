#include "benchmarks/precision/direct_detector.h"

#include "interface/quorvex_precise.h"

namespace quorvex::benchmarks {

Detection DetectDirectly(const tools::Picture& picture) {
  precise::ImageView view;
  view.pixels = picture.pixels.data();
  view.width = picture.width;
  view.height = picture.height;
  view.stride = picture.width;
  const precise::Result result = precise::Detect(view);
  Detection detection;
  if (!result.reason.empty()) {
    detection.reason = result.stage + ": " + result.reason;
  }
  for (const precise::Mark& mark : result.marks) {
    if (mark.verdict != precise::Verdict::kPredicted) {
      detection.marks.push_back({mark.row, mark.column, mark.x, mark.y, mark.cxx, mark.cxy,
                                 mark.cyy, mark.verdict == precise::Verdict::kDoubtful});
    }
  }
  return detection;
}

}  // namespace quorvex::benchmarks
