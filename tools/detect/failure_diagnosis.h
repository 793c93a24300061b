// Why a detection found nothing, judged from the pictures and lists that it left behind.
#ifndef QUORVEX_TOOLS_DETECT_FAILURE_DIAGNOSIS_H_
#define QUORVEX_TOOLS_DETECT_FAILURE_DIAGNOSIS_H_

#include <filesystem>
#include <string>

namespace quorvex::tools {

// One sentence, without a full stop, that names the first stage whose outcome is not plausible and
// what to change. `directory` holds what one failed detection left in a directory that was empty
// before: files of an earlier one would mislead. `gridFound` is what the detection returned.
std::string DescribeFailure(const std::filesystem::path& directory, bool gridFound);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_FAILURE_DIAGNOSIS_H_
