#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "tools/errors.h"
#include "tools/target/target_drawing.h"

namespace quorvex::tools {
namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr double kPi = 3.14159265358979323846;
// Of rulers and labels, the reflectance: bright enough that neither detection takes them for marks.
constexpr double kGrey = 0.6;
constexpr const char* kDate =
    "2000-01-01T00:00:00Z";  // the same for all, so that files are the same

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

cairo_status_t Append(void* closure, const unsigned char* data, unsigned int length) {
  auto& bytes = *static_cast<std::vector<std::uint8_t>*>(closure);
  try {
    bytes.insert(bytes.end(), data, data + length);
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
  return CAIRO_STATUS_SUCCESS;
}

// Both formats take points: cairo keeps positions to 1/256 of a unit.
cairo_surface_t* CreateSurface(const Paper& paper, DrawingFormat format,
                               std::vector<std::uint8_t>& bytes) {
  const double width = paper.width * kPointsPerMillimetre;
  const double height = paper.height * kPointsPerMillimetre;
  if (format == DrawingFormat::kSvg) {
    return cairo_svg_surface_create_for_stream(Append, &bytes, width, height);
  }
  cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(Append, &bytes, width, height);
  cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, "Target of cross marks");
  cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_CREATOR, "quorvex target");
  cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_CREATE_DATE, kDate);
  return surface;
}

void FillBars(cairo_t* context, const std::vector<Bar>& bars, double level) {
  cairo_set_source_rgb(context, level, level, level);
  for (const Bar& bar : bars) {
    cairo_rectangle(context, bar.x, bar.y, bar.width, bar.height);
    cairo_fill(context);
  }
}

void DrawLabel(cairo_t* context, const Label& label) {
  cairo_save(context);
  cairo_move_to(context, label.x, label.y);
  if (label.runsUp) {
    cairo_rotate(context, -kPi / 2);
  }
  cairo_set_font_size(context, label.height);
  cairo_text_extents_t extents;
  cairo_text_extents(context, label.text.c_str(), &extents);
  if (extents.x_advance > label.room) {
    cairo_set_font_size(context, label.height * label.room / extents.x_advance);
  }
  cairo_set_source_rgb(context, kGrey, kGrey, kGrey);
  cairo_show_text(context, label.text.c_str());
  cairo_restore(context);
}

void RequireSuccess(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) {
    throw InputError(fmt::format("the target cannot be drawn: {}", cairo_status_to_string(status)));
  }
}

}  // namespace

std::vector<std::uint8_t> DrawTarget(const TargetLayout& layout, DrawingFormat format) {
  std::vector<std::uint8_t> bytes;
  const Surface surface(CreateSurface(layout.paper, format, bytes), cairo_surface_destroy);
  {
    const Context context(cairo_create(surface.get()), cairo_destroy);
    cairo_set_source_rgb(context.get(), 1, 1, 1);
    cairo_paint(context.get());
    cairo_scale(context.get(), kPointsPerMillimetre, kPointsPerMillimetre);
    FillBars(context.get(), layout.marks, 0);
    FillBars(context.get(), layout.rulers, kGrey);
    cairo_select_font_face(context.get(), "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                           CAIRO_FONT_WEIGHT_NORMAL);
    for (const Label& label : layout.labels) {
      DrawLabel(context.get(), label);
    }
    cairo_show_page(context.get());
    RequireSuccess(cairo_status(context.get()));
  }
  cairo_surface_finish(surface.get());
  RequireSuccess(cairo_surface_status(surface.get()));
  return bytes;
}

}  // namespace quorvex::tools
