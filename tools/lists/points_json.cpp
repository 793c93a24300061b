#include "tools/lists/points_json.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "tools/errors.h"

namespace quorvex::tools {
namespace {

using Json = nlohmann::json;

std::string JsonString(const std::string& text) {
  // File names need not be UTF-8; JSON must be.
  return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

// Whether an int holds a whole number. Those above the largest of 64 bits with a sign are kept
// without one, and would come out negative.
bool IsInt(const Json& value) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  if (value.is_number_unsigned()) {
    return value.get<std::uint64_t>() <= std::uint64_t{kMost};
  }
  const std::int64_t number = value.get<std::int64_t>();
  return number >= kLeast && number <= kMost;
}

// Reads members of one JSON object; `file` and `where` name it in messages.
class JsonObject {
 public:
  JsonObject(const Json& object, const std::string& file, std::string where)
      : object_(object), file_(file), where_(std::move(where)) {
    if (!object.is_object()) {
      Fail(where_ + " is not an object");
    }
  }

  bool Has(const char* name) const { return object_.contains(name); }

  const Json& Member(const char* name) const {
    const auto found = object_.find(name);
    if (found == object_.end()) {
      Fail(fmt::format("{} has no \"{}\"", where_, name));
    }
    return *found;
  }
  int Integer(const char* name) const {
    const Json& value = Member(name);
    if (!value.is_number_integer() || !IsInt(value)) {
      FailAt(name, "a whole number");
    }
    return value.get<int>();
  }
  int Size(const char* name) const {
    const int size = Integer(name);
    if (size < 0) {
      FailAt(name, "a number of pixels");
    }
    return size;
  }
  double Number(const char* name) const {
    const Json& value = Member(name);
    if (!value.is_number() || !std::isfinite(value.get<double>())) {
      FailAt(name, "a number");
    }
    return value.get<double>() + 0.0;  // -0.0 as -0, which is a whole number without its sign
  }
  std::string Text(const char* name) const {
    const Json& value = Member(name);
    if (!value.is_string()) {
      FailAt(name, "a text");
    }
    return value.get<std::string>();
  }
  PointKind Kind() const {
    if (!Has("kind")) {
      return PointKind::kUnknown;
    }
    const std::optional<PointKind> kind = KindNamed(Text("kind"));
    if (!kind) {
      FailAt("kind", fmt::format("one of {}", kKindNames).c_str());
    }
    return *kind;
  }
  std::optional<Covariance> PointCovariance() const {
    if (!Has("cxx")) {
      return std::nullopt;
    }
    return Covariance{Number("cxx"), Number("cxy"), Number("cyy")};
  }
  const Json& List(const char* name) const {
    const Json& value = Member(name);
    if (!value.is_array()) {
      FailAt(name, "a list");
    }
    return value;
  }

 private:
  [[noreturn]] void Fail(const std::string& reason) const {
    throw InputError(fmt::format("{}: {}", file_, reason));
  }
  [[noreturn]] void FailAt(const char* name, const char* wanted) const {
    Fail(fmt::format("\"{}\" of {} is not {}", name, where_, wanted));
  }

  const Json& object_;
  const std::string& file_;
  std::string where_;
};

PointsOfImage ParseImage(const Json& value, const std::string& file, const std::string& where) {
  const JsonObject object(value, file, where);
  if (object.Has("error")) {
    return {object.Text("image"), 0, 0, {}, object.Text("error")};
  }
  PointsOfImage image{object.Text("image"), object.Size("width"), object.Size("height"), {}};
  const Json& points = object.List("points");
  for (std::size_t i = 0; i < points.size(); ++i) {
    const JsonObject point(points[i], file, fmt::format("{}, point {}", where, i + 1));
    image.points.push_back({point.Integer("id"), point.Integer("row"), point.Integer("col"),
                            point.Number("x"), point.Number("y"), point.Kind(),
                            point.PointCovariance()});
  }
  return image;
}

std::string FormatPoint(const ListedPoint& p) {
  std::string text =
      fmt::format("{{\"id\": {}, \"row\": {}, \"col\": {}, \"x\": {:.9g}, \"y\": {:.9g}", p.id,
                  p.row, p.col, p.x, p.y);
  if (p.kind != PointKind::kUnknown) {
    text += fmt::format(", \"kind\": \"{}\"", KindName(p.kind));
  }
  if (p.covariance) {
    text += fmt::format(", \"cxx\": {:.6g}, \"cxy\": {:.6g}, \"cyy\": {:.6g}", p.covariance->xx,
                        p.covariance->xy, p.covariance->yy);
  }
  return text + '}';
}

std::string FormatFacts(const std::vector<std::pair<std::string, double>>& facts) {
  std::string text;
  for (const auto& [name, value] : facts) {
    text += fmt::format("{}\"{}\": {:.9g}", text.empty() ? "" : ", ", name, value);
  }
  return text.empty() ? "" : fmt::format("  \"facts\": {{{}}},\n", text);
}

}  // namespace

// One line per point: whole enough for a parser, readable and comparable for people.
std::string FormatJsonImage(const PointsOfImage& image) {
  if (!image.error.empty()) {
    return fmt::format(" {{\n  \"image\": {},\n  \"error\": {}\n }}", JsonString(image.image),
                       JsonString(image.error));
  }
  std::string text =
      fmt::format(" {{\n  \"image\": {},\n  \"width\": {},\n  \"height\": {},\n{}  \"points\": [",
                  JsonString(image.image), image.width, image.height, FormatFacts(image.facts));
  for (const ListedPoint& p : image.points) {
    text += (&p == image.points.data() ? "\n   " : ",\n   ") + FormatPoint(p);
  }
  return text + "\n  ]\n }";
}

std::string FormatPointsJson(const std::vector<PointsOfImage>& images) {
  std::string text = "[";
  for (const PointsOfImage& image : images) {
    text += (&image == images.data() ? "\n" : ",\n") + FormatJsonImage(image);
  }
  return text + "\n]\n";
}

std::vector<PointsOfImage> ParsePointsJson(const std::string& text, const std::string& name) {
  Json list;
  try {
    list = Json::parse(text);
  } catch (const Json::parse_error& error) {
    const std::size_t end = std::min(error.byte, text.size());
    const auto line =
        std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '\n');
    throw InputError(fmt::format("{}:{}: not valid JSON", name, line + 1));
  } catch (const Json::out_of_range&) {
    throw InputError(fmt::format("{} holds a number that is too large", name));
  }
  if (!list.is_array()) {
    throw InputError(fmt::format("{} is not a list of images", name));
  }
  std::vector<PointsOfImage> images;
  for (std::size_t i = 0; i < list.size(); ++i) {
    images.push_back(ParseImage(list[i], name, fmt::format("image {}", i + 1)));
  }
  return images;
}

}  // namespace quorvex::tools
