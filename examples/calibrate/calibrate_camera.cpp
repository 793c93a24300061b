// Calibrates a fisheye camera from pictures of one board, with each of the two detections, and
// prints both cameras beside the true one where that is known.
//
//   calibrate_camera PITCH PICTURE... [--true F CX CY K1 K2 K3 K4]
//
// PITCH is the board's, in millimetres. Leaves residuals-plain.png and residuals-precise.png in the
// current folder.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <opencv2/imgcodecs.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "examples/calibrate/calibration.h"
#include "examples/calibrate/detections.h"
#include "examples/calibrate/residual_picture.h"

namespace {

using namespace calibrate;

constexpr std::size_t kTrueNumbers = 7;

struct Arguments {
  double pitch = 0;  // millimetres
  std::vector<std::string> pictures;
  std::vector<double> truth;  // as after --true; empty when it is not known
};

double NumberOf(const std::string& text) {
  char* end = nullptr;
  const double number = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0') {
    throw std::runtime_error(text + " is no number");
  }
  return number;
}

Arguments ArgumentsOf(int argc, char** argv) {
  Arguments arguments;
  std::vector<std::string> words(argv + 1, argv + argc);
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--true") {
      for (++i; i < words.size(); ++i) {
        arguments.truth.push_back(NumberOf(words[i]));
      }
    } else if (i == 0) {
      arguments.pitch = NumberOf(words[i]);
    } else {
      arguments.pictures.push_back(words[i]);
    }
  }
  const bool hasTruth = arguments.truth.empty() || arguments.truth.size() == kTrueNumbers;
  if (!(arguments.pitch > 0) || arguments.pictures.empty() || !hasTruth) {
    throw std::runtime_error(
        "usage: calibrate_camera PITCH PICTURE... [--true F CX CY K1 K2 K3 K4]");
  }
  return arguments;
}

void PrintRow(const char* name, std::size_t marks, const Calibration& calibration) {
  const cv::Matx33d& camera = calibration.camera;
  const cv::Vec4d& k = calibration.coefficients;
  std::printf("%-8s %5zu  %9.4f %9.4f  %9.4f %9.4f  %8.5f %8.5f %8.5f %8.5f  %7.4f\n", name, marks,
              camera(0, 0), camera(1, 1), camera(0, 2), camera(1, 2), k[0], k[1], k[2], k[3],
              RootMeanSquare(calibration.residuals));
}

void PrintTruth(const std::vector<double>& truth) {
  if (!truth.empty()) {
    std::printf("%-8s %5s  %9.4f %9.4f  %9.4f %9.4f  %8.5f %8.5f %8.5f %8.5f\n", "true", "",
                truth[0], truth[0], truth[1], truth[2], truth[3], truth[4], truth[5], truth[6]);
  }
}

void CalibrateAndPrint(const char* name, const std::vector<View>& views, double pitch,
                       const cv::Size& size) {
  const Calibration calibration = Calibrate(views, pitch, size);
  PrintRow(name, calibration.residuals.size(), calibration);
  const std::string picture = std::string("residuals-") + name + ".png";
  if (!cv::imwrite(picture, DrawResiduals(calibration, size, name))) {
    throw std::runtime_error(picture + ": cannot be written");
  }
}

void Run(const Arguments& arguments) {
  std::vector<View> plainViews;
  std::vector<View> preciseViews;
  cv::Size size;
  for (const std::string& path : arguments.pictures) {
    const cv::Mat picture = ReadGreyPicture(path);
    if (!size.empty() && picture.size() != size) {
      throw std::runtime_error(path + ": its size is not that of the pictures before it");
    }
    size = picture.size();
    plainViews.push_back(DetectPlainly(picture));
    preciseViews.push_back(DetectPrecisely(picture));
  }
  std::printf("%zu pictures of %d x %d pixels; lengths in pixels, rms is of the reprojection\n\n",
              arguments.pictures.size(), size.width, size.height);
  std::printf("%-8s %5s  %9s %9s  %9s %9s  %8s %8s %8s %8s  %7s\n", "", "marks", "fx", "fy", "cx",
              "cy", "k1", "k2", "k3", "k4", "rms");
  PrintTruth(arguments.truth);
  CalibrateAndPrint("plain", plainViews, arguments.pitch, size);
  CalibrateAndPrint("precise", preciseViews, arguments.pitch, size);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Run(ArgumentsOf(argc, argv));
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "calibrate_camera: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
