#include "benchmarks/precision/disturbances.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace quorvex::benchmarks {

using tools::LevelPicture;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kShadowSoftness = 1.5;      // pixels, sigma of the edge of a shadow
constexpr double kMotionSteps = 4;           // exposures per pixel of motion
constexpr double kBlotchSigmaPerSize = 0.5;  // a blotch is about two sigmas wide

template <typename Change>
void ChangeLevels(LevelPicture& picture, const Change& change) {
  std::size_t index = 0;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x, ++index) {
      picture.levels[index] =
          static_cast<float>(change(static_cast<double>(picture.levels[index]),
                                    static_cast<double>(x), static_cast<double>(y)));
    }
  }
}

void CastShadow(LevelPicture& picture, const Disturbance& disturbance) {
  if (disturbance.shadowFactor == 1) {
    return;
  }
  const double normalX = -std::sin(disturbance.shadowAngle);
  const double normalY = std::cos(disturbance.shadowAngle);
  ChangeLevels(picture, [&](double level, double x, double y) {
    const double distance =
        (x - disturbance.shadowX) * normalX + (y - disturbance.shadowY) * normalY;
    const double lit = 0.5 * std::erfc(-distance / (kShadowSoftness * std::sqrt(2.0)));
    return level * (disturbance.shadowFactor + (1 - disturbance.shadowFactor) * lit);
  });
}

int Clamped(int index, int count) { return std::clamp(index, 0, count - 1); }

// One pass of a separable filter; the border's levels are continued outwards.
void FilterAlong(const LevelPicture& source, const std::vector<double>& weights, int stepX,
                 int stepY, LevelPicture& result) {
  const int reach = static_cast<int>(weights.size() / 2);
  for (int y = 0; y < source.height; ++y) {
    for (int x = 0; x < source.width; ++x) {
      double sum = 0;
      for (int i = -reach; i <= reach; ++i) {
        const int row = Clamped(y + i * stepY, source.height);
        const int column = Clamped(x + i * stepX, source.width);
        sum += weights[static_cast<std::size_t>(i + reach)] *
               static_cast<double>(source.levels[static_cast<std::size_t>(row) *
                                                     static_cast<std::size_t>(source.width) +
                                                 static_cast<std::size_t>(column)]);
      }
      result.levels[static_cast<std::size_t>(y) * static_cast<std::size_t>(source.width) +
                    static_cast<std::size_t>(x)] = static_cast<float>(sum);
    }
  }
}

// White noise of a fixed spread, smoothed and scaled to a standard deviation of one.
LevelPicture SmoothNoise(int width, int height, double sigma, std::uint64_t seed) {
  constexpr double kMiddle = 128;  // grey level, so that the noise is not clamped
  constexpr double kSpread = 25;   // grey levels
  LevelPicture grey;
  grey.width = width;
  grey.height = height;
  grey.levels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                     static_cast<float>(kMiddle));
  const tools::Picture white = tools::AddNoiseAndRound(grey, kSpread, seed);
  for (std::size_t i = 0; i < white.pixels.size(); ++i) {
    grey.levels[i] = static_cast<float>(white.pixels[i] - kMiddle);
  }
  std::vector<double> weights;
  double squares = 0;
  const int reach = static_cast<int>(std::ceil(3 * sigma));
  for (int i = -reach; i <= reach; ++i) {
    weights.push_back(std::exp(-0.5 * i * i / (sigma * sigma)));
    squares += weights.back() * weights.back();
  }
  for (double& weight : weights) {
    weight /= std::sqrt(squares * kSpread);
  }
  LevelPicture along = grey;
  FilterAlong(grey, weights, 1, 0, along);
  FilterAlong(along, weights, 0, 1, grey);
  return grey;
}

void AddBlotches(LevelPicture& picture, const Disturbance& disturbance, std::uint64_t seed) {
  if (disturbance.blotchSigma == 0) {
    return;
  }
  constexpr std::uint64_t kOtherSeed = 0x9e3779b97f4a7c15;  // the sensor's noise has the plain one
  const LevelPicture blotches =
      SmoothNoise(picture.width, picture.height, kBlotchSigmaPerSize * disturbance.blotchSize,
                  seed ^ kOtherSeed);
  for (std::size_t i = 0; i < picture.levels.size(); ++i) {
    picture.levels[i] += static_cast<float>(disturbance.blotchSigma) * blotches.levels[i];
  }
}

void AddMoire(LevelPicture& picture, const Disturbance& disturbance) {
  if (disturbance.moireAmplitude == 0) {
    return;
  }
  const double waveX = 2 * kPi * std::cos(disturbance.moireAngle) / disturbance.moirePeriod;
  const double waveY = 2 * kPi * std::sin(disturbance.moireAngle) / disturbance.moirePeriod;
  ChangeLevels(picture, [&](double level, double x, double y) {
    return level + disturbance.moireAmplitude * std::sin(waveX * x + waveY * y);
  });
}

// The weights of a cubic through four neighbours, at a part from the second to the third.
void CubicWeights(double part, double weights[4]) {
  weights[0] = -part * (part - 1) * (part - 2) / 6;
  weights[1] = (part + 1) * (part - 1) * (part - 2) / 2;
  weights[2] = -(part + 1) * part * (part - 2) / 2;
  weights[3] = (part + 1) * part * (part - 1) / 6;
}

// Adds the picture moved by (moveX, moveY) pixels.
void AddMoved(const LevelPicture& picture, double moveX, double moveY, double weight,
              std::vector<double>& sums) {
  const int wholeX = static_cast<int>(std::floor(-moveX));
  const int wholeY = static_cast<int>(std::floor(-moveY));
  double across[4];
  double down[4];
  CubicWeights(-moveX - wholeX, across);
  CubicWeights(-moveY - wholeY, down);
  std::size_t index = 0;
  std::size_t columns[4];
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x, ++index) {
      for (int i = 0; i < 4; ++i) {
        columns[i] = static_cast<std::size_t>(Clamped(x + wholeX + i - 1, picture.width));
      }
      double sum = 0;
      for (int j = 0; j < 4; ++j) {
        const float* row = picture.levels.data() +
                           static_cast<std::size_t>(Clamped(y + wholeY + j - 1, picture.height)) *
                               static_cast<std::size_t>(picture.width);
        sum += down[j] * (across[0] * static_cast<double>(row[columns[0]]) +
                          across[1] * static_cast<double>(row[columns[1]]) +
                          across[2] * static_cast<double>(row[columns[2]]) +
                          across[3] * static_cast<double>(row[columns[3]]));
      }
      sums[index] += weight * sum;
    }
  }
}

void Move(LevelPicture& picture, const Disturbance& disturbance) {
  if (disturbance.motionLength == 0) {
    return;
  }
  const int steps = static_cast<int>(std::ceil(disturbance.motionLength * kMotionSteps));
  std::vector<double> sums(picture.levels.size(), 0.0);
  for (int i = 0; i < steps; ++i) {
    const double along = ((i + 0.5) / steps - 0.5) * disturbance.motionLength;
    AddMoved(picture, along * std::cos(disturbance.motionAngle),
             along * std::sin(disturbance.motionAngle), 1.0 / steps, sums);
  }
  for (std::size_t i = 0; i < sums.size(); ++i) {
    picture.levels[i] = static_cast<float>(sums[i]);
  }
}

}  // namespace

void ApplyGradient(LevelPicture& picture, const tools::RenderSettings& target) {
  if (target.gradientX == 0 && target.gradientY == 0) {
    return;
  }
  ChangeLevels(picture, [&](double level, double x, double y) {
    const double right = 2.0 * x / (picture.width - 1) - 1;
    const double down = 2.0 * y / (picture.height - 1) - 1;
    return level * std::max(0.0, 1 + target.gradientX * right + target.gradientY * down);
  });
}

void Disturb(LevelPicture& picture, const Disturbance& disturbance, std::uint64_t seed) {
  CastShadow(picture, disturbance);
  AddBlotches(picture, disturbance, seed);
  AddMoire(picture, disturbance);
  Move(picture, disturbance);
  if (disturbance.gain != 1 || disturbance.offset != 0) {
    ChangeLevels(picture, [&](double level, double, double) {
      return std::clamp(disturbance.gain * level + disturbance.offset, 0.0, 255.0);
    });
  }
  if (disturbance.gamma != 1) {
    ChangeLevels(picture, [&](double level, double, double) {
      return 255 * std::pow(std::max(0.0, level) / 255, 1 / disturbance.gamma);
    });
  }
}

}  // namespace quorvex::benchmarks
