#include <share.h>

#include "imageio/diagnostic_list.h"
#include "imageio/diagnostic_place.h"

namespace quorvex {

std::FILE* OpenDiagnosticList(const char* name) {
  const char* const place = PlaceOfDiagnostic(name);
  return place != nullptr ? ::_fsopen(place, "w", _SH_DENYWR) : nullptr;
}

}  // namespace quorvex
