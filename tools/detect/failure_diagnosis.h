// Why a detection found nothing, judged from the pictures that it left behind.
#ifndef QUORVEX_TOOLS_DETECT_FAILURE_DIAGNOSIS_H_
#define QUORVEX_TOOLS_DETECT_FAILURE_DIAGNOSIS_H_

#include <filesystem>
#include <string>

namespace quorvex::tools {

struct FailedDetection {
  // Holds what this detection left, and nothing of an earlier one, which would mislead.
  std::filesystem::path directory;
  bool gridFound = false;  // what the detection returned
  int bitsPerSample = 8;   // of the picture file: 16 when its values were scaled down
};

// One sentence, without a full stop, that names the first thing that is not as the detection needs
// it, and what to change.
std::string DescribeFailure(const FailedDetection& failure);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_FAILURE_DIAGNOSIS_H_
