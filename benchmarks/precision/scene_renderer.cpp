#include "benchmarks/precision/scene_renderer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "benchmarks/precision/disturbances.h"
#include "benchmarks/precision/jpeg_loss.h"
#include "benchmarks/precision/scene_levels.h"
#include "benchmarks/precision/scene_truth.h"

namespace quorvex::benchmarks {
namespace {

constexpr double kBlurReach = 4.5;   // sigmas; what lies beyond is below 1e-5 of the whole
constexpr int kFineSide = 8;         // cells a pixel's side: 64 cells a pixel
constexpr int kCoarseSide = 4;       // enough where the blur is at least four cells wide
constexpr double kCoarseBlur = 1.0;  // pixels

// The weights of the cells that make up a pixel: the Gaussian convolved with the pixel's width. The
// pixel's own cells stand in the middle, `reach` pixels on each side.
std::vector<float> PixelWeights(double sigma, int side, int reach) {
  const int cellReach = reach * side;
  std::vector<double> weights(static_cast<std::size_t>(2 * cellReach + side), 0.0);
  double sum = 0;
  for (int offset = -cellReach; offset <= cellReach; ++offset) {
    const double distance = sigma == 0 ? offset * 100.0 : offset / (sigma * side);
    const double weight = std::exp(-0.5 * distance * distance);
    for (int cell = 0; cell < side; ++cell) {
      weights[static_cast<std::size_t>(cellReach + offset + cell)] += weight;
      sum += weight;
    }
  }
  std::vector<float> result;
  for (const double weight : weights) {
    result.push_back(static_cast<float>(weight / sum));
  }
  return result;
}

class Filter {
 public:
  explicit Filter(const Scene& scene)
      : scene_(scene),
        side_(scene.target.blurSigma < kCoarseBlur ? kFineSide : kCoarseSide),
        reach_(static_cast<int>(std::ceil(kBlurReach * scene.target.blurSigma))),
        weights_(PixelWeights(scene.target.blurSigma, side_, reach_)),
        levels_(scene, reach_ + 1.0) {
    const std::size_t width = static_cast<std::size_t>(scene.target.width);
    uniform_.resize(width + 2 * static_cast<std::size_t>(reach_));
    cells_.resize(uniform_.size() * static_cast<std::size_t>(side_));
    pixels_.resize(width);
  }

  tools::LevelPicture Run() {
    tools::LevelPicture picture;
    picture.width = scene_.target.width;
    picture.height = scene_.target.height;
    picture.levels.assign(
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height), 0.0f);
    for (int y = -reach_; y < picture.height + reach_; ++y) {
      levels_.FindUniform(-reach_, y, uniform_);
      MarkEven();
      FillUniform();
      for (int cellRow = 0; cellRow < side_; ++cellRow) {
        SampleOthers(y, cellRow);
        FilterRow();
        AddToRows(picture, y, cellRow);
      }
    }
    return picture;
  }

 private:
  // Pixels of the output that see one level only, in this row.
  void MarkEven() {
    const std::size_t span = 2 * static_cast<std::size_t>(reach_) + 1;
    isEven_.assign(pixels_.size(), false);
    std::size_t run = 0;
    for (std::size_t i = 0; i < uniform_.size(); ++i) {
      const bool continues = i > 0 && uniform_[i] && uniform_[i] == uniform_[i - 1];
      run = continues ? run + 1 : (uniform_[i] ? 1 : 0);
      if (run >= span) {
        isEven_[i + 1 - span] = true;
      }
    }
  }

  void FillUniform() {
    for (std::size_t i = 0; i < uniform_.size(); ++i) {
      if (uniform_[i]) {
        float* cells = cells_.data() + i * static_cast<std::size_t>(side_);
        std::fill(cells, cells + side_, *uniform_[i]);
      }
    }
  }

  void SampleOthers(int y, int cellRow) {
    for (std::size_t i = 0; i < uniform_.size(); ++i) {
      if (!uniform_[i]) {
        levels_.SampleCells(static_cast<int>(i) - reach_, y, cellRow, side_,
                            cells_.data() + i * static_cast<std::size_t>(side_));
      }
    }
  }

  void FilterRow() {
    for (std::size_t x = 0; x < pixels_.size(); ++x) {
      const float* cells = cells_.data() + x * static_cast<std::size_t>(side_);
      if (isEven_[x]) {
        pixels_[x] = cells[0];
        continue;
      }
      double sum = 0;
      for (std::size_t i = 0; i < weights_.size(); ++i) {
        sum += static_cast<double>(weights_[i]) * static_cast<double>(cells[i]);
      }
      pixels_[x] = static_cast<float>(sum);
    }
  }

  void AddToRows(tools::LevelPicture& picture, int y, int cellRow) {
    const int first = std::max(0, y - reach_);
    const int last = std::min(picture.height - 1, y + reach_);
    for (int row = first; row <= last; ++row) {
      const float weight = weights_[static_cast<std::size_t>((y - row + reach_) * side_ + cellRow)];
      float* levels = picture.levels.data() + static_cast<std::size_t>(row) * pixels_.size();
      for (std::size_t x = 0; x < pixels_.size(); ++x) {
        levels[x] += weight * pixels_[x];
      }
    }
  }

  const Scene& scene_;
  int side_;
  int reach_;                   // pixels
  std::vector<float> weights_;  // of the cells
  SceneLevels levels_;
  std::vector<std::optional<float>> uniform_;  // with `reach_` pixels beyond the frame
  std::vector<bool> isEven_;
  std::vector<float> cells_;
  std::vector<float> pixels_;
};

}  // namespace

tools::LevelPicture RenderLevels(const Scene& scene) { return Filter(scene).Run(); }

RenderedScene RenderScene(const Scene& scene) {
  tools::LevelPicture levels = RenderLevels(scene);
  ApplyGradient(levels, scene.target);
  Disturb(levels, scene.disturbance, scene.target.seed);
  RenderedScene rendered;
  rendered.picture = tools::AddNoiseAndRound(levels, scene.target.noiseSigma, scene.target.seed);
  Compress(rendered.picture, scene.disturbance.jpegQuality);
  rendered.marks = TrueMarks(scene);
  return rendered;
}

}  // namespace quorvex::benchmarks
