#include "tests/precise/drawn_board.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace quorvex::tests {
namespace {

constexpr int kSamples = 5;  // on each side of a pixel

bool IsDark(const DrawnBoard& board, double x, double y) {
  const double pitch = board.step.norm();
  const Eigen::Vector2d away = Eigen::Vector2d(x, y) - board.first;
  const Eigen::Vector2d right = board.step / pitch;
  const double column = (right.x() * away.x() + right.y() * away.y()) / pitch;
  const double row = (right.x() * away.y() - right.y() * away.x()) / pitch;
  const int nearestRow = static_cast<int>(std::lround(row));
  const int nearestColumn = static_cast<int>(std::lround(column));
  if (nearestRow < 0 || nearestRow >= board.rows || nearestColumn < 0 ||
      nearestColumn >= board.columns || board.missing.count({nearestRow, nearestColumn}) != 0) {
    return false;
  }
  const double across = std::abs(row - nearestRow);
  const double along = std::abs(column - nearestColumn);
  const double half = 0.5 * board.stroke / pitch;
  return std::max(across, along) <= board.arm && std::min(across, along) <= half;
}

// Along one axis; `stride` is the distance of neighbours along it.
void Blur(std::vector<float>& samples, int count, int stride, int lines, int lineStride,
          double sigma) {
  const int reach = static_cast<int>(std::ceil(4 * sigma));
  std::vector<float> weights;
  float total = 0;
  for (int i = -reach; i <= reach; ++i) {
    weights.push_back(static_cast<float>(std::exp(-0.5 * i * i / (sigma * sigma))));
    total += weights.back();
  }
  std::vector<float> line(static_cast<std::size_t>(count));
  for (int l = 0; l < lines; ++l) {
    for (int i = 0; i < count; ++i) {
      float sum = 0;
      for (int k = -reach; k <= reach; ++k) {
        const int from = std::clamp(i + k, 0, count - 1);
        sum += weights[static_cast<std::size_t>(k + reach)] *
               samples[static_cast<std::size_t>(l * lineStride + from * stride)];
      }
      line[static_cast<std::size_t>(i)] = sum / total;
    }
    for (int i = 0; i < count; ++i) {
      samples[static_cast<std::size_t>(l * lineStride + i * stride)] =
          line[static_cast<std::size_t>(i)];
    }
  }
}

}  // namespace

Eigen::Vector2d DrawnBoard::Place(double row, double column) const {
  return first + column * step + row * Eigen::Vector2d(-step.y(), step.x());
}

precise::GrayPicture DrawnBoard::Draw() const {
  const int sampleWidth = width * kSamples;
  const int sampleHeight = height * kSamples;
  std::vector<float> samples(static_cast<std::size_t>(sampleWidth * sampleHeight));
  for (int y = 0; y < sampleHeight; ++y) {
    for (int x = 0; x < sampleWidth; ++x) {
      const bool isDark = IsDark(*this, (x + 0.5) / kSamples - 0.5, (y + 0.5) / kSamples - 0.5);
      samples[static_cast<std::size_t>(y * sampleWidth + x)] =
          static_cast<float>(isDark ? mark : board);
    }
  }
  if (blur > 0) {
    Blur(samples, sampleWidth, 1, sampleHeight, sampleWidth, blur * kSamples);
    Blur(samples, sampleHeight, sampleWidth, sampleWidth, 1, blur * kSamples);
  }
  precise::GrayPicture picture(width, height, 0);
  std::mt19937 random(seed);
  std::normal_distribution<double> gauss(0.0, 1.0);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      double sum = 0;
      for (int i = 0; i < kSamples * kSamples; ++i) {
        sum += samples[static_cast<std::size_t>((y * kSamples + i / kSamples) * sampleWidth +
                                                x * kSamples + i % kSamples)];
      }
      const double level = sum / (kSamples * kSamples) + noise * gauss(random);
      picture.Row(y)[x] = static_cast<std::uint8_t>(std::clamp(std::lround(level), 0L, 255L));
    }
  }
  return picture;
}

}  // namespace quorvex::tests
