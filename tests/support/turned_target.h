// A board with 4 x 4 marks, turned against the image so that every mark is found in its place.
// Includes nothing, since hosts without a standard library draw it, too.
#ifndef QUORVEX_TESTS_SUPPORT_TURNED_TARGET_H_
#define QUORVEX_TESTS_SUPPORT_TURNED_TARGET_H_

namespace quorvex::tests {

constexpr int kTurnedTargetSize = 800;  // pixels, width and height
constexpr int kTurnedTargetMarks = 4;   // in a row and in a column

// 14 degrees.
constexpr float kTurnedTargetCosine = 0.970296f;
constexpr float kTurnedTargetSine = 0.241922f;

constexpr float kTurnedTargetCentre = 400.0f;   // pixels
constexpr float kTurnedTargetSpacing = 150.0f;  // pixels

// Where a mark's centre lies along the board's axis, from the board's centre.
constexpr float TurnedTargetOffset(int index) {
  return kTurnedTargetSpacing *
         (static_cast<float>(index) - 0.5f * static_cast<float>(kTurnedTargetMarks - 1));
}

// Image position of a mark; y counts buffer rows.
constexpr float TurnedTargetX(int row, int col) {
  return kTurnedTargetCentre + kTurnedTargetCosine * TurnedTargetOffset(col) -
         kTurnedTargetSine * TurnedTargetOffset(row);
}
constexpr float TurnedTargetY(int row, int col) {
  return kTurnedTargetCentre + kTurnedTargetSine * TurnedTargetOffset(col) +
         kTurnedTargetCosine * TurnedTargetOffset(row);
}

constexpr float TurnedTargetDistance(float a, float b) { return a < b ? b - a : a - b; }

// How much of a stroke covers a pixel, 0 to 1; `across` and `along` are distances from the mark's
// centre. 3 pixels wide, 100 long, with soft edges.
constexpr float TurnedTargetCover(float across, float along) {
  return along > 50.0f || across > 2.5f ? 0.0f : across < 0.5f ? 1.0f : (2.5f - across) / 2.0f;
}

constexpr unsigned char TurnedTargetPixel(int x, int y) {
  const float dx = static_cast<float>(x) - kTurnedTargetCentre;
  const float dy = static_cast<float>(y) - kTurnedTargetCentre;
  const float u = kTurnedTargetCosine * dx + kTurnedTargetSine * dy;
  const float v = kTurnedTargetCosine * dy - kTurnedTargetSine * dx;
  constexpr float kHalfBoard = 310.0f;  // pixels
  if (TurnedTargetDistance(u, 0.0f) > kHalfBoard || TurnedTargetDistance(v, 0.0f) > kHalfBoard) {
    return 0;
  }
  float cover = 0.0f;
  for (int row = 0; row < kTurnedTargetMarks; ++row) {
    for (int col = 0; col < kTurnedTargetMarks; ++col) {
      const float fromU = TurnedTargetDistance(u, TurnedTargetOffset(col));
      const float fromV = TurnedTargetDistance(v, TurnedTargetOffset(row));
      const float horizontal = TurnedTargetCover(fromV, fromU);
      const float vertical = TurnedTargetCover(fromU, fromV);
      cover = horizontal > cover ? horizontal : cover;
      cover = vertical > cover ? vertical : cover;
    }
  }
  return static_cast<unsigned char>(200.0f - 160.0f * cover);
}

// `image` holds kTurnedTargetSize x kTurnedTargetSize bytes.
inline void DrawTurnedTarget(unsigned char* image) {
  for (int y = 0; y < kTurnedTargetSize; ++y) {
    for (int x = 0; x < kTurnedTargetSize; ++x) {
      *image++ = TurnedTargetPixel(x, y);
    }
  }
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_TURNED_TARGET_H_
