#include "bindings/python/diagnostics.h"

#include <cstring>

#include "imageio/diagnostic_place.h"

namespace quorvex::bindings {
namespace {

thread_local std::string folderOfThread;  // empty: nowhere
thread_local std::string placeOfThread;

// Only the last part of the fixed name counts: "./Mask.bmp", "D:/Row.txt".
const char* PlaceInFolder(const char* name) {
  if (folderOfThread.empty()) {
    return nullptr;
  }
  const char* const slash = std::strrchr(name, '/');
  placeOfThread = folderOfThread + "/" + (slash != nullptr ? slash + 1 : name);
  return placeOfThread.c_str();
}

}  // namespace

void KeepDiagnosticsFromTheCurrentDirectory() { PlaceDiagnosticsBy(PlaceInFolder); }

DiagnosticsFolder::DiagnosticsFolder(const std::string& folder) { folderOfThread = folder; }
DiagnosticsFolder::~DiagnosticsFolder() { folderOfThread.clear(); }

}  // namespace quorvex::bindings
