#include "benchmarks/precision/empty_pictures.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdint>

#include "benchmarks/precision/canvas.h"
#include "benchmarks/precision/scene_pose.h"
#include "benchmarks/precision/scene_renderer.h"

namespace quorvex::benchmarks {
namespace {

using tools::Picture;
using Pictures = std::vector<EmptyPicture>;

constexpr double kPi = 3.14159265358979323846;
constexpr int kWidth = 1280;    // pixels
constexpr int kHeight = 1024;   // pixels
constexpr double kPaper = 200;  // grey level
constexpr double kInk = 30;     // grey level
constexpr double kNoise = 2;    // grey levels

Picture Blank(double level, double noise, std::uint64_t seed) {
  return Canvas(kWidth, kHeight, level).Finish(noise, seed);
}

void AddPlain(Pictures& pictures) {
  for (const double noise : {0, 2, 10, 40, 120}) {
    pictures.push_back({fmt::format("noise {:g}", noise), [=] { return Blank(128, noise, 1); }});
  }
  pictures.push_back({"black", [] { return Blank(0, 0, 1); }});
  pictures.push_back({"white with noise 2", [] { return Blank(255, 2, 1); }});
}

// The standard scene at half its size.
Scene HalfScene(std::uint64_t seed) {
  SceneRandom random(seed);
  Scene scene = StandardScene(random);
  tools::RenderSettings& target = scene.target;
  target.width = target.height = 1024;
  target.principalX = target.principalY = 511.5;
  target.focalLength /= 2;
  target.strokeWidth *= 2;
  return scene;
}

// A board of the renderer with what makes it none.
void AddBoards(Pictures& pictures) {
  for (const std::uint64_t seed : {1, 2, 3, 4}) {
    pictures.push_back({fmt::format("chessboard {}", seed), [seed] {
                          Scene scene = HalfScene(seed);
                          scene.target.pattern = tools::Pattern::kChessboard;
                          scene.target.rotation = 15.0 * static_cast<double>(seed);
                          PlaceWithinAngle(30 + 7.0 * static_cast<double>(seed), scene);
                          return RenderScene(scene).picture;
                        }});
  }
  for (const std::uint64_t seed : {1, 2, 3, 4}) {
    pictures.push_back({fmt::format("graph paper {}", seed), [seed] {
                          Scene scene = HalfScene(seed);
                          scene.target.armLength = scene.target.pitch / 2;
                          scene.target.rows = scene.target.columns = seed % 2 == 0 ? 13 : 31;
                          scene.target.rotation = 12.0 * static_cast<double>(seed);
                          PlaceWithinAngle(35 + 6.0 * static_cast<double>(seed), scene);
                          return RenderScene(scene).picture;
                        }});
  }
}

Picture Circles(int spacing, double radius, bool isFilled, std::uint64_t seed) {
  Canvas canvas(kWidth, kHeight, kPaper);
  for (int y = spacing; y < kHeight; y += spacing) {
    for (int x = spacing; x < kWidth; x += spacing) {
      canvas.DrawEllipse(x + 0.3, y - 0.2, radius, radius, kInk);
      if (!isFilled) {
        canvas.DrawEllipse(x + 0.3, y - 0.2, radius - 4, radius - 4, kPaper);
      }
    }
  }
  return canvas.Finish(kNoise, seed);
}

Picture Lines(int directions, int count, double width, std::uint64_t seed) {
  SceneRandom random(seed);
  Canvas canvas(kWidth, kHeight, kPaper);
  for (int i = 0; i < count; ++i) {
    const double angle =
        directions == 0 ? random.Between(0, kPi) : 0.1 + kPi * (i % directions) / directions;
    const double x = random.Between(0, kWidth);
    const double y = random.Between(0, kHeight);
    const double reach = 2000;
    canvas.DrawStroke(x - reach * std::cos(angle), y - reach * std::sin(angle),
                      x + reach * std::cos(angle), y + reach * std::sin(angle), width, kInk);
  }
  return canvas.Finish(kNoise, seed);
}

// Letters are a few strokes each, in words and lines.
Picture Text(double height, std::uint64_t seed) {
  SceneRandom random(seed);
  Canvas canvas(kWidth, kHeight, kPaper);
  for (double y = 2 * height; y < kHeight - height; y += 1.8 * height) {
    for (double x = 2 * height; x < kWidth - 2 * height; x += 0.7 * height) {
      if (random.Whole(0, 5) == 0) {
        continue;
      }
      for (int stroke = random.Whole(2, 4); stroke > 0; --stroke) {
        const double left = x + 0.25 * height * random.Whole(0, 2);
        const double top = y + 0.5 * height * random.Whole(0, 2);
        const double right = x + 0.25 * height * random.Whole(0, 2);
        const double bottom = y + 0.5 * height * random.Whole(0, 2) + 0.5;
        canvas.DrawStroke(left, top, right, bottom, std::max(1.2, height / 9), kInk);
      }
    }
  }
  return canvas.Finish(kNoise, seed);
}

Picture Bricks(double width, double height, double joint, bool isStaggered, std::uint64_t seed) {
  SceneRandom random(seed);
  Canvas canvas(kWidth, kHeight, isStaggered ? kPaper : kInk);
  int row = 0;
  for (double y = 0; y < kHeight; y += height, ++row) {
    const double start = isStaggered && row % 2 == 1 ? -width / 2 : 0;
    for (double x = start; x < kWidth; x += width) {
      canvas.FillRectangle(x + joint, y + joint, x + width, y + height, random.Between(90, 140));
    }
  }
  return canvas.Finish(kNoise, seed);
}

void DrawCross(Canvas& canvas, double x, double y, double arm, double angle, double width) {
  for (const double turn : {0.0, kPi / 2}) {
    const double alongX = arm * std::cos(angle + turn);
    const double alongY = arm * std::sin(angle + turn);
    canvas.DrawStroke(x - alongX, y - alongY, x + alongX, y + alongY, width, kInk);
  }
}

Picture RandomCrosses(int count, double arm, bool isTurned, std::uint64_t seed) {
  SceneRandom random(seed);
  Canvas canvas(kWidth, kHeight, kPaper);
  for (int i = 0; i < count; ++i) {
    DrawCross(canvas, random.Between(0, kWidth), random.Between(0, kHeight),
              arm * random.Between(0.7, 1.4), isTurned ? random.Between(0, kPi) : 0.05, 4);
  }
  return canvas.Finish(kNoise, seed);
}

// Two eyes, a nose and a mouth on an oval, with hair and shoulders.
Picture Face(std::uint64_t seed) {
  SceneRandom random(seed);
  Canvas canvas(kWidth, kHeight, 150);
  const double x = random.Between(500, 800);
  const double y = random.Between(420, 560);
  const double size = random.Between(150, 300);
  canvas.DrawEllipse(x, y + 1.9 * size, 1.8 * size, size, 70);
  canvas.DrawEllipse(x, y - 0.3 * size, 1.1 * size, 1.2 * size, 40);
  canvas.DrawEllipse(x, y, 0.85 * size, 1.1 * size, 190);
  for (const double side : {-1, 1}) {
    canvas.DrawEllipse(x + side * 0.35 * size, y - 0.2 * size, 0.18 * size, 0.1 * size, 230);
    canvas.DrawEllipse(x + side * 0.35 * size, y - 0.2 * size, 0.07 * size, 0.07 * size, 30);
    canvas.DrawEllipse(x + side * 0.35 * size, y - 0.42 * size, 0.22 * size, 0.04 * size, 60);
  }
  canvas.DrawEllipse(x, y + 0.15 * size, 0.1 * size, 0.22 * size, 165);
  canvas.DrawEllipse(x, y + 0.55 * size, 0.35 * size, 0.09 * size, 110);
  return canvas.Finish(4, seed);
}

void AddDrawn(Pictures& pictures) {
  const auto add = [&](const std::string& name, const std::function<Picture()>& make) {
    pictures.push_back({name, make});
  };
  add("circles", [] { return Circles(60, 18, true, 1); });
  add("small circles", [] { return Circles(30, 6, true, 2); });
  add("rings", [] { return Circles(80, 26, false, 3); });
  add("lines in all directions", [] { return Lines(0, 60, 3, 1); });
  add("lines in two directions", [] { return Lines(2, 60, 3, 2); });
  add("many lines in two directions", [] { return Lines(2, 200, 2, 3); });
  add("lines in three directions", [] { return Lines(3, 90, 4, 4); });
  for (const double height : {12, 20, 36, 70}) {
    add(fmt::format("text of {:g} px", height), [=] { return Text(height, 1); });
  }
  add("bricks", [] { return Bricks(120, 45, 6, true, 1); });
  add("small bricks", [] { return Bricks(48, 20, 3, true, 2); });
  add("dark joints between tiles", [] { return Bricks(64, 64, 5, false, 3); });
  add("dark joints between wide tiles", [] { return Bricks(130, 90, 7, false, 4); });
  for (const int count : {10, 40, 120}) {
    add(fmt::format("{} crosses at random", count),
        [=] { return RandomCrosses(count, 25, true, 5); });
  }
  add("60 upright crosses at random", [] { return RandomCrosses(60, 25, false, 6); });
  add("300 small crosses at random", [] { return RandomCrosses(300, 12, true, 7); });
  add("one cross", [] { return RandomCrosses(1, 40, true, 8); });
  for (const std::uint64_t seed : {1, 2, 3, 4}) {
    add(fmt::format("face {}", seed), [=] { return Face(seed); });
  }
}

}  // namespace

std::vector<EmptyPicture> AllEmptyPictures() {
  Pictures pictures;
  AddPlain(pictures);
  AddBoards(pictures);
  AddDrawn(pictures);
  return pictures;
}

}  // namespace quorvex::benchmarks
