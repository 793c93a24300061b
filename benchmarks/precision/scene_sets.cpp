#include "benchmarks/precision/scene_sets.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "benchmarks/precision/scene_pose.h"

namespace quorvex::benchmarks {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kStandardAngle = 61;  // degrees off the axis
constexpr int kSeeds = 5;              // of a row
constexpr int kStepSeeds = 3;          // of a step of the envelope

using Rows = std::vector<SceneRow>;
using Change = std::function<void(SceneRandom& random, Scene& scene)>;

// Changes the standard scene before its distance is known, and after.
void AddRow(Rows& rows, const std::string& table, const std::string& name, int seeds,
            const Change& before, const Change& after) {
  rows.push_back({table, name, seeds, [=](std::uint64_t seed) {
                    SceneRandom random(seed);
                    Scene scene = StandardScene(random);
                    scene.name = name;
                    before(random, scene);
                    if (scene.target.distance == 0) {
                      PlaceWithinAngle(kStandardAngle, scene);
                    }
                    after(random, scene);
                    return scene;
                  }});
}

void Nothing(SceneRandom&, Scene&) {}

// A point of the circle round the board's middle in the picture.
void PlaceDisc(SceneRandom& random, double level, Scene& scene) {
  const double angle = random.Between(0, 2 * kPi);
  const double distance = random.Between(150, 600);
  scene.discs.push_back({*scene.target.principalX + distance * std::cos(angle),
                         *scene.target.principalY + distance * std::sin(angle),
                         random.Between(50, 130), level});
}

void Tilt(SceneRandom&, Scene& scene) {
  scene.target.tiltX = 22;
  scene.target.tiltY = -18;
}

void AddMainRows(Rows& rows) {
  const std::string table = "Scenes";
  AddRow(rows, table, "clean, blur 0.5", kSeeds, Nothing, [](SceneRandom&, Scene& scene) {
    scene.target.noiseSigma = 0;
    scene.target.blurSigma = 0.5;
  });
  AddRow(rows, table, "noise 5, blur 1", kSeeds, Nothing, [](SceneRandom&, Scene& scene) {
    scene.target.noiseSigma = 5;
    scene.target.blurSigma = 1;
  });
  AddRow(rows, table, "tilted by 22 and -18 degrees, noise 2", kSeeds, Tilt, Nothing);
  AddRow(rows, table, "three discs before the board, noise 2", kSeeds, Nothing,
         [](SceneRandom& random, Scene& scene) {
           for (const double level : {30, 110, 220}) {
             PlaceDisc(random, level, scene);
           }
         });
  AddRow(rows, table, "cut by the frame, noise 2", kSeeds, Nothing,
         [](SceneRandom& random, Scene& scene) {
           const double signX = random.Whole(0, 1) == 0 ? -1 : 1;
           const double signY = random.Whole(0, 1) == 0 ? -1 : 1;
           *scene.target.principalX += signX * random.Between(450, 700);
           *scene.target.principalY += signY * random.Between(0, 500);
         });
}

void AddStep(Rows& rows, const std::string& name, const Change& before,
             const Change& after = Nothing) {
  AddRow(rows, "Envelope", name, kStepSeeds, before, after);
}

template <typename Field>
void AddSettingSteps(Rows& rows, const char* name, Field field,
                     std::initializer_list<double> values) {
  for (const double value : values) {
    AddStep(rows, fmt::format("{} {:g}", name, value),
            [=](SceneRandom&, Scene& scene) { scene.target.*field = value; });
  }
}

void AddPictureSteps(Rows& rows) {
  AddSettingSteps(rows, "noise", &tools::RenderSettings::noiseSigma, {0, 2, 4, 6, 8, 10});
  AddSettingSteps(rows, "blur", &tools::RenderSettings::blurSigma, {0, 0.5, 1, 2, 3});
  for (const double width : {1.5, 2.5, 5.0, 8.0, 12.0}) {
    AddStep(rows, fmt::format("stroke {:g} px on the axis", width), Nothing,
            [=](SceneRandom&, Scene& scene) { SetStroke(width, scene); });
  }
  for (const double contrast : {25, 50, 100, 150}) {
    AddStep(rows, fmt::format("{:g} grey levels of contrast", contrast),
            [=](SceneRandom&, Scene& scene) {
              scene.target.markLevel = scene.target.boardLevel - contrast;
            });
  }
  AddStep(rows, "light marks on a dark board", [](SceneRandom&, Scene& scene) {
    std::swap(scene.target.markLevel, scene.target.boardLevel);
    scene.target.backgroundLevel = 120;
  });
  for (const double gradient : {0.2, 0.4, 0.6}) {
    AddStep(rows, fmt::format("gradient {:g}", gradient), [=](SceneRandom& random, Scene& scene) {
      const double angle = random.Between(0, 2 * kPi);
      scene.target.gradientX = gradient * std::cos(angle);
      scene.target.gradientY = gradient * std::sin(angle);
      scene.target.boardLevel = 140;  // 1.6 times that is still below 255
    });
  }
}

void AddPoseSteps(Rows& rows) {
  for (const double pitch : {25, 30, 35, 45, 60, 90, 150, 220, 330}) {
    AddStep(rows, fmt::format("pitch {:g} px on the axis", pitch), [=](SceneRandom&, Scene& scene) {
      PlaceAtPitch(pitch, scene);
      SetStroke(std::clamp(pitch / 30, 2.0, 8.0), scene);
    });
  }
  for (const double tilt : {0, 10, 20, 30, 40, 50}) {
    AddStep(rows, fmt::format("tilt {:g} degrees", tilt), [=](SceneRandom& random, Scene& scene) {
      const double direction = random.Between(0, 2 * kPi);
      scene.target.tiltX = tilt * std::cos(direction);
      scene.target.tiltY = tilt * std::sin(direction);
    });
  }
  AddSettingSteps(rows, "rotation", &tools::RenderSettings::rotation,
                  {0, 15, 30, 44, 46, 60, 75, 90, 180, 300});
  AddStep(rows, "image centre anywhere", [](SceneRandom& random, Scene& scene) {
    scene.target.principalX = random.Between(850, 1200);
    scene.target.principalY = random.Between(850, 1200);
    scene.target.shiftX = random.Between(-60, 60);
    scene.target.shiftY = random.Between(-60, 60);
  });
  for (const double part : {0.1, 0.2, 0.3}) {
    AddStep(rows, fmt::format("{:g} % of the marks absent", 100 * part), Nothing,
            [=](SceneRandom& random, Scene& scene) { LeaveOut(part, random, scene); });
  }
  for (const double arm : {0.25, 0.33, 0.49}) {
    AddStep(rows, fmt::format("arms of {:g} pitches", arm),
            [=](SceneRandom&, Scene& scene) { scene.target.armLength = arm * scene.target.pitch; });
  }
}

// All within the envelope at once; what the dark of a stroke amounts to stays above the noise.
void MixEverything(SceneRandom& random, Scene& scene) {
  tools::RenderSettings& target = scene.target;
  const double direction = random.Between(0, 2 * kPi);
  const double tilt = random.Between(0, 40);
  target.tiltX = tilt * std::cos(direction);
  target.tiltY = tilt * std::sin(direction);
  target.rotation = random.Between(-180, 180);
  target.rows = random.Whole(5, 15);
  target.columns = random.Whole(5, 15);
  target.shiftX = random.Between(-60, 60);
  target.shiftY = random.Between(-60, 60);
  target.armLength = random.Between(0.33, 0.47) * target.pitch;
  PlaceWithinAngle(random.Between(35, 61), scene);
  target.gradientX = random.Between(-0.3, 0.3);
  target.gradientY = random.Between(-0.3, 0.3);
  target.boardLevel = random.Between(110, 190);
  target.backgroundLevel = random.Between(20, 180);
  const double largestStroke = std::min(12.0, 0.1 * PitchOnAxis(target));
  double visibility = 0;
  while (visibility < 5) {
    const double stroke = random.Between(1.5, largestStroke);
    target.blurSigma = random.Between(0.4, 3);
    target.noiseSigma = random.Between(0, 10);
    target.markLevel = target.boardLevel - random.Between(25, target.boardLevel - 10);
    SetStroke(stroke, scene);
    visibility = (target.boardLevel - target.markLevel) *
                 std::min(1.0, stroke / (2.5 * target.blurSigma)) / (target.noiseSigma + 0.5);
  }
}

void AddRandomRow(Rows& rows) {
  AddRow(rows, "All at random", "100 scenes with all of it at random", 100, MixEverything,
         [](SceneRandom& random, Scene& scene) {
           LeaveOut(random.Between(0, 0.3), random, scene);
           const int discs = random.Whole(0, 2);
           for (int i = 0; i < discs; ++i) {
             PlaceDisc(random, random.Between(10, 240), scene);
           }
         });
}

void AddLens(Rows& rows, const std::string& name, tools::CameraModel model, double focalLength,
             double lowAngle, double highAngle) {
  AddRow(
      rows, "Lenses", name, kSeeds,
      [=](SceneRandom& random, Scene& scene) {
        scene.target.model = model;
        scene.target.focalLength = focalLength;
        if (model == tools::CameraModel::kKannalaBrandt) {
          scene.target.k1 = random.Between(-0.05, 0.02);
          scene.target.k2 = random.Between(-0.01, 0.01);
          scene.target.k3 = random.Between(-0.003, 0.003);
        }
        PlaceWithinAngle(random.Between(lowAngle, highAngle), scene);
      },
      Nothing);
}

void AddLensRows(Rows& rows) {
  AddLens(rows, "equisolid, 60 to 70 degrees", tools::CameraModel::kEquisolid, 700, 60, 70);
  AddLens(rows, "stereographic, 60 to 70 degrees", tools::CameraModel::kStereographic, 650, 60, 70);
  AddLens(rows, "Kannala-Brandt, 60 to 70 degrees", tools::CameraModel::kKannalaBrandt, 700, 60,
          70);
  AddLens(rows, "pinhole, 35 degrees", tools::CameraModel::kPinhole, 1300, 35, 35);
  AddLens(rows, "equidistant, 78 degrees", tools::CameraModel::kEquidistant, 700, 78, 78);
}

void AddSuffering(Rows& rows, const std::string& name,
                  const std::function<void(SceneRandom&, Disturbance&)>& change) {
  AddRow(rows, "What real pictures suffer", name, kSeeds, Tilt,
         [=](SceneRandom& random, Scene& scene) { change(random, scene.disturbance); });
}

void AddSufferings(Rows& rows) {
  for (const int quality : {60, 30, 15}) {
    AddSuffering(rows, fmt::format("JPEG of quality {}", quality),
                 [=](SceneRandom&, Disturbance& change) { change.jpegQuality = quality; });
  }
  for (const double length : {5, 9}) {
    AddSuffering(rows, fmt::format("motion of {:g} px", length),
                 [=](SceneRandom& random, Disturbance& change) {
                   change.motionLength = length;
                   change.motionAngle = random.Between(0, kPi);
                 });
  }
  AddSuffering(rows, "gamma 2.2", [](SceneRandom&, Disturbance& change) { change.gamma = 2.2; });
  AddSuffering(rows, "a shadow's edge at 0.45", [](SceneRandom& random, Disturbance& change) {
    change.shadowFactor = 0.45;
    change.shadowX = random.Between(900, 1150);
    change.shadowY = random.Between(900, 1150);
    change.shadowAngle = random.Between(0, 2 * kPi);
  });
  AddSuffering(rows, "clipping at both ends", [](SceneRandom&, Disturbance& change) {
    change.gain = 1.5;
    change.offset = -40;
  });
  AddSuffering(rows, "moire of +-12 grey levels", [](SceneRandom& random, Disturbance& change) {
    change.moireAmplitude = 12;
    change.moirePeriod = random.Between(5, 25);
    change.moireAngle = random.Between(0, kPi);
  });
  AddSuffering(rows, "blotches of 8 px, sigma 10", [](SceneRandom&, Disturbance& change) {
    change.blotchSigma = 10;
    change.blotchSize = 8;
  });
}

void AddBands(Rows& rows) {
  for (const double width : {60, 150, 250, 350}) {
    AddRow(rows, "Boards split by a band", fmt::format("a band of {:g} px", width), kSeeds, Nothing,
           [=](SceneRandom& random, Scene& scene) {
             scene.bands.push_back({*scene.target.principalX + random.Between(-100, 100),
                                    *scene.target.principalY + random.Between(-100, 100),
                                    random.Between(0, kPi), width, random.Between(20, 200)});
           });
  }
}

// 4000 x 3000 pixels.
void AddLargeRow(Rows& rows) {
  AddRow(
      rows, "Large", "4000 x 3000, 14 x 18 marks, noise 2", 3,
      [](SceneRandom&, Scene& scene) {
        scene.target.width = 4000;
        scene.target.height = 3000;
        scene.target.principalX = 1999.5;
        scene.target.principalY = 1499.5;
        scene.target.focalLength = 1500;
        scene.target.rows = 14;
        scene.target.columns = 18;
        PlaceWithinAngle(60, scene);
      },
      Nothing);
}

}  // namespace

std::vector<SceneRow> AllSceneRows() {
  Rows rows;
  AddMainRows(rows);
  AddPictureSteps(rows);
  AddPoseSteps(rows);
  AddRandomRow(rows);
  AddLensRows(rows);
  AddSufferings(rows);
  AddBands(rows);
  AddLargeRow(rows);
  return rows;
}

}  // namespace quorvex::benchmarks
