#include "imageio/diagnostic_place.h"

namespace quorvex {
namespace {

DiagnosticPlace placeOfDiagnostics = nullptr;

}  // namespace

void PlaceDiagnosticsBy(DiagnosticPlace place) { placeOfDiagnostics = place; }

const char* PlaceOfDiagnostic(const char* name) {
  return placeOfDiagnostics == nullptr ? name : placeOfDiagnostics(name);
}

}  // namespace quorvex
