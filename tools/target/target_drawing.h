// The file of a target to print.
#ifndef QUORVEX_TOOLS_TARGET_TARGET_DRAWING_H_
#define QUORVEX_TOOLS_TARGET_TARGET_DRAWING_H_

#include <cstdint>
#include <vector>

#include "tools/target/target_layout.h"

namespace quorvex::tools {

enum class DrawingFormat { kPdf, kSvg };

// At true scale, to a thousandth of a millimetre or two. The same layout gives the same bytes on
// one machine; text is set in the font that it has. Throws InputError (tools/errors.h) when this
// build cannot draw, and when memory ends.
std::vector<std::uint8_t> DrawTarget(const TargetLayout& layout, DrawingFormat format);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_TARGET_TARGET_DRAWING_H_
