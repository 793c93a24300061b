#include "tools/detect/precise_images.h"

#include <algorithm>
#include <cstddef>
#include <mutex>
#include <thread>
#include <utility>

#include "tools/detect/precise_detection.h"

namespace quorvex::tools {
namespace {

// What the threads share.
class Work {
 public:
  Work(const std::vector<std::filesystem::path>& images, const precise::Options& options,
       const DetectionObserver& observer)
      : images_(images),
        options_(options),
        observer_(observer),
        results_(images.size()),
        isFinished_(images.size()) {}

  // One thread's part: images until none is left.
  void Run() {
    std::size_t image = 0;
    while (Next(image)) {
      Finish(image, DetectPrecisely(images_[image], options_));
    }
  }

  std::vector<DetectionResult> Take() { return std::move(results_); }

 private:
  bool Next(std::size_t& image) {
    const std::lock_guard<std::mutex> lock(mutex_);
    image = next_;
    next_ = std::min(next_ + 1, images_.size());
    return image < images_.size();
  }

  void Finish(std::size_t image, DetectionResult result) {
    const std::lock_guard<std::mutex> lock(mutex_);
    results_[image] = std::move(result);
    isFinished_[image] = true;
    observer_.onProgress(++finishedCount_);
    for (; reported_ < results_.size() && isFinished_[reported_]; ++reported_) {
      observer_.onResult(results_[reported_]);
    }
  }

  const std::vector<std::filesystem::path>& images_;
  const precise::Options& options_;
  const DetectionObserver& observer_;

  std::mutex mutex_;      // guards all that follows
  std::size_t next_ = 0;  // the first image that no thread has taken
  std::vector<DetectionResult> results_;
  std::vector<bool> isFinished_;
  int finishedCount_ = 0;
  std::size_t reported_ = 0;  // images whose result was handed to the observer
};

}  // namespace

std::vector<DetectionResult> DetectImagesPrecisely(const std::vector<std::filesystem::path>& images,
                                                   const precise::Options& options, int parallel,
                                                   const DetectionObserver& observer) {
  Work work(images, options, observer);
  const std::size_t count = std::min(static_cast<std::size_t>(parallel), images.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 1; i < count; ++i) {
    threads.emplace_back([&work] { work.Run(); });
  }
  work.Run();
  for (std::thread& thread : threads) {
    thread.join();
  }
  return work.Take();
}

}  // namespace quorvex::tools
