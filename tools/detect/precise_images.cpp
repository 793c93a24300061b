#include "tools/detect/precise_images.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include "tools/detect/precise_detection.h"

namespace quorvex::tools {
namespace {

// What the threads share.
class Work {
 public:
  Work(const std::vector<DetectionJob>& jobs, const precise::Options& options,
       const std::optional<GreyLevels>& levels, const DetectionObserver& observer)
      : jobs_(jobs), options_(options), levels_(levels), observer_(observer) {}

  // One thread's part: images until none is left.
  void Run() {
    std::size_t job = 0;
    while (Next(job)) {
      Finish(job, DetectPrecisely(jobs_[job].image, options_, levels_));
    }
  }

  void ThrowFailure() const {
    if (failure_) {
      std::rethrow_exception(failure_);
    }
  }

 private:
  bool Next(std::size_t& job) {
    const std::lock_guard<std::mutex> lock(mutex_);
    job = next_;
    next_ = std::min(next_ + 1, jobs_.size());
    return job < jobs_.size() && !failure_;
  }

  void Finish(std::size_t job, DetectionResult result) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (failure_) {
      return;
    }
    try {
      waiting_[job] = std::move(result);
      observer_.onProgress(++finishedCount_);
      for (; waiting_.count(reported_) > 0; ++reported_) {
        observer_.onResult(waiting_[reported_]);
        waiting_.erase(reported_);
      }
    } catch (...) {  // it must not leave a thread
      failure_ = std::current_exception();
    }
  }

  const std::vector<DetectionJob>& jobs_;
  const precise::Options& options_;
  const std::optional<GreyLevels>& levels_;
  const DetectionObserver& observer_;

  std::mutex mutex_;                                // guards all that follows
  std::size_t next_ = 0;                            // the first job that no thread has taken
  std::map<std::size_t, DetectionResult> waiting_;  // for one before them, by job
  int finishedCount_ = 0;
  std::size_t reported_ = 0;    // jobs whose result was handed to the observer
  std::exception_ptr failure_;  // of the observer
};

}  // namespace

void DetectImagesPrecisely(const std::vector<DetectionJob>& jobs, const precise::Options& options,
                           const std::optional<GreyLevels>& levels, int parallel,
                           const DetectionObserver& observer) {
  Work work(jobs, options, levels, observer);
  const std::size_t count = std::min(static_cast<std::size_t>(parallel), jobs.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 1; i < count; ++i) {
    threads.emplace_back([&work] { work.Run(); });
  }
  work.Run();
  for (std::thread& thread : threads) {
    thread.join();
  }
  work.ThrowFailure();
}

}  // namespace quorvex::tools
