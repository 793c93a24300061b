#include "tools/detect/detect_images.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>

#include "tools/detect/diagnostics_folder.h"
#include "tools/detect/list_folder.h"
#include "tools/system/file_name.h"
#include "tools/system/private_directory.h"
#include "tools/system/worker_process.h"

namespace quorvex::tools {
namespace {

DetectionResult ResultOfWorker(const DetectionJob& job, const std::filesystem::path& directory,
                               const std::string& failure) {
  DetectionResult result;
  try {
    if (!failure.empty()) {
      throw std::runtime_error(failure);
    }
    result = ReadDetectionResult(directory / kResultFile);
  } catch (const std::runtime_error& error) {
    result.exitCode = kExitNothingFound;
    result.message = fmt::format("{}: {}", Utf8Name(job.image), error.what());
  }
  result.found.image = Utf8Name(job.image);
  // An input error comes before the detection, so there is nothing to keep.
  if (job.diagnosticsFolder.empty() || result.exitCode == kExitBadInput) {
    return result;
  }
  try {
    KeepDiagnostics(directory, job.diagnosticsFolder);
  } catch (const InputError& error) {
    result.exitCode = kExitBadInput;
    result.message = error.what();
  }
  return result;
}

// Then a detection must have ended, and its lists been kept, before the next one starts.
bool KeepsSharedLists(const std::vector<DetectionJob>& jobs) {
  return IsListFolderShared() && std::any_of(jobs.begin(), jobs.end(), [](const DetectionJob& job) {
           return !job.diagnosticsFolder.empty();
         });
}

}  // namespace

void DetectImages(const std::vector<DetectionJob>& jobs, const DetectParameters& parameters,
                  int parallel, const DetectionObserver& observer) {
  const std::filesystem::path program = OwnProgramPath();
  RemoveDirectoriesOfKilledRuns();
  const int mostWorkers = KeepsSharedLists(jobs) ? 1 : parallel;
  std::map<std::size_t, DetectionResult> waiting;  // for one before them, by job
  std::size_t next = 0;                            // the first job not started
  std::size_t reported = 0;                        // jobs whose result was handed to the observer
  int finishedCount = 0;

  // In this order: on the way out of an interruption the pool ends its workers before their
  // directories are removed.
  std::map<int, PrivateDirectory> directories;
  WorkerPool pool;
  while (finishedCount < static_cast<int>(jobs.size())) {
    while (next < jobs.size() && pool.Count() < mostWorkers) {
      const int worker = static_cast<int>(next++);
      const std::filesystem::path directory = directories[worker].Path();
      if (!jobs[worker].diagnosticsFolder.empty()) {
        PrepareListFolder(directory);
      }
      pool.Start(worker, program, WorkerArguments(jobs[worker].image, directory, parameters));
    }
    const WorkerEnd end = pool.WaitForOne();
    waiting[static_cast<std::size_t>(end.worker)] =
        ResultOfWorker(jobs[end.worker], directories[end.worker].Path(), end.failure);
    directories.erase(end.worker);
    observer.onProgress(++finishedCount);
    for (; waiting.count(reported) > 0; ++reported) {
      observer.onResult(waiting[reported]);
      waiting.erase(reported);
    }
  }
}

}  // namespace quorvex::tools
