#include "tests/support/random_board.h"

namespace quorvex::tests {
namespace {

void DrawMark(int x, int y, int arm, int slant, int thickness, unsigned char level,
              TestImage& image) {
  DrawLine(x - arm, y - slant, x + arm, y + slant, thickness, level, image);
  DrawLine(x + slant, y - arm, x - slant, y + arm, thickness, level, image);
}

}  // namespace

void DrawBoard(CaseRandom& random, const BoardStyle& style, int centreX, int centreY,
               TestImage& image) {
  const int slant = random.Between(-12, 12);  // pixels down over one pitch to the right
  const int arm = random.Between(36, 58);
  const int thickness = random.Between(2, 5);
  const int reach = 6;
  for (int row = -reach; row <= reach; ++row) {
    for (int col = -reach; col <= reach; ++col) {
      int x = centreX + col * style.pitch - row * slant;
      int y = centreY + row * style.pitch + col * slant;
      if (!style.isComplete) {
        if (random.OneIn(10)) {
          continue;
        }
        if (random.OneIn(3)) {
          x += random.Between(-8, 8);
          y += random.Between(-8, 8);
        }
      }
      DrawMark(x, y, arm, slant * arm / style.pitch, thickness, style.stroke, image);
    }
  }
}

TestImage RandomStrokeBoard(CaseRandom& random, ImageSize size) {
  TestImage image = FlatImage(size, 0);
  const int pitch = random.Between(118, 150);
  const bool isComplete = random.OneIn(2);
  const int x = size.width / 2 + random.Between(-30, 30);
  const int y = size.height / 2 + random.Between(-30, 30);
  DrawBoard(random, {0, 255, pitch, isComplete}, x, y, image);
  for (int i = random.OneOf({0, 20, 600}); i > 0; --i) {
    const int noiseX = random.Below(size.width);
    const int noiseY = random.Below(size.height);
    image.At(noiseX, noiseY) = random.OneOf<unsigned char>({255, 255, 254, 0});
  }
  return image;
}

PixelSpanList RandomSpans(CaseRandom& random, int count, int length) {
  const int kind = random.Below(6);
  const int cut = random.Between(0, 60);
  PixelSpanList spans;
  for (int i = 0; i < count; ++i) {
    switch (kind) {
      case 0:
        spans.push_back({cut, length - 1 - cut});
        break;
      case 1:
        spans.push_back({-1000, 1000});
        break;
      case 2:
        spans.push_back(random.OneIn(4) ? PixelSpan{length, 0} : PixelSpan{0, length - 1});
        break;
      default:
        spans.push_back({0, length - 1});
        break;
    }
  }
  return spans;
}

}  // namespace quorvex::tests
