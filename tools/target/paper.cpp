#include "tools/target/paper.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "tools/errors.h"
#include "tools/target/side_lengths.h"

namespace quorvex::tools {
namespace {

constexpr double kSmallestSide = 50;   // millimetres
constexpr double kLargestSide = 2000;  // millimetres

}  // namespace

std::vector<Paper> NamedPapers() {
  return {{"A4", 210, 297}, {"A3", 297, 420}, {"A2", 420, 594}};  // ISO 216
}

Paper ParsePaper(const std::string& text) {
  std::string names;
  for (const Paper& paper : NamedPapers()) {
    if (CLI::detail::to_lower(text) == CLI::detail::to_lower(paper.name)) {
      return paper;
    }
    names += paper.name + ", ";
  }
  const std::optional<SideLengths> sides = ParseSideLengths(text);
  if (!sides) {
    throw InputError(
        fmt::format("--paper: {} is not one of {}WIDTHxHEIGHT in millimetres", text, names));
  }
  for (const double side : {sides->width, sides->height}) {
    if (!(side >= kSmallestSide && side <= kLargestSide)) {
      throw InputError(fmt::format("--paper: sides are {:g} to {:g} mm long, not {:g}",
                                   kSmallestSide, kLargestSide, side));
    }
  }
  return {"", sides->width, sides->height};
}

Paper Turned(const Paper& paper) { return {paper.name, paper.height, paper.width}; }

std::string PaperText(const Paper& paper) {
  return paper.name.empty()
             ? fmt::format("{:g} x {:g} mm", paper.width, paper.height)
             : fmt::format("{} ({:g} x {:g} mm)", paper.name, paper.width, paper.height);
}

}  // namespace quorvex::tools
