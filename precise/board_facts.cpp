#include "precise/board_facts.h"

#include <Eigen/LU>
#include <algorithm>
#include <array>
#include <cmath>

#include "precise/median.h"
#include "precise/profile_steps.h"

namespace quorvex::precise {
namespace {

constexpr double kPieceFrom = 0.35;     // of an arm: clear of the crossing
constexpr double kPieceTo = 0.85;       // of an arm: clear of its end
constexpr double kFirstBend = 0.3;      // px at the end of the arms, of the first fits
constexpr std::size_t kFirstMarks = 6;  // of the first round; even a hidden half tells enough
constexpr int kEndBins = 60;            // of the darkness along arms
constexpr double kEndReach = 0.6;       // pitches; beyond, the neighbour's arms are
constexpr double kGoesOn = 0.5;         // pitches: arms that touch their neighbours'
constexpr double kPlateauFrom = 0.5;    // of the expected arm, where it is surely dark
constexpr double kPlateauTo = 0.7;

using Index = std::size_t;

double PitchAcross(const MarkFrame& frame, const BoardFacts& facts, Index stroke) {
  return frame.width[stroke] / facts.strokeWidth[stroke];
}

std::vector<ProfilePiece> PiecesOf(const std::vector<MarkFrame>& frames, const BoardFacts& facts,
                                   Index stroke) {
  std::vector<ProfilePiece> pieces;
  for (const MarkFrame& frame : frames) {
    for (Index arm = 0; arm < 2; ++arm) {
      ProfilePiece piece;
      piece.line.origin = frame.centre;
      piece.line.direction = frame.direction[stroke];
      piece.line.shape = {0.0, 0.0, frame.bend[stroke][0], frame.bend[stroke][1]};
      const double length = frame.armLength[stroke][arm];
      piece.from = arm == 0 ? kPieceFrom * length : -kPieceTo * length;
      piece.to = arm == 0 ? kPieceTo * length : -kPieceFrom * length;
      piece.pitch = PitchAcross(frame, facts, stroke);
      pieces.push_back(piece);
    }
  }
  return pieces;
}

// Frames of the marks, moved onto them by a fit with the facts so far.
std::vector<MarkFrame> FittedFrames(const GrayPicture& picture, const BoardMap& map,
                                    const std::vector<GridLabel>& marks, double noise,
                                    const BoardFacts& facts) {
  const EdgeTables first(facts.sigma[0]);
  const EdgeTables second(facts.sigma[1]);
  MarkFitSettings settings;
  settings.edges = {&first, &second};
  settings.noise = noise;
  settings.armPart = 0.9;
  settings.bendSigma = {kFirstBend, 0.0};
  std::vector<MarkFrame> frames;
  for (const GridLabel& mark : marks) {
    MarkFrame frame;
    if (!map.Frame(mark.row, mark.column, facts, frame)) {
      continue;
    }
    const MarkFit fit = FitMark(picture, frame, settings);
    if (fit.isMeasured && fit.SeenArms() == 4) {
      frame.centre = fit.centre;
      frame.direction = fit.direction;
      frame.bend = fit.bend;
      frame.darkness = fit.darkness;
      frames.push_back(frame);
    }
  }
  return frames;
}

// Darkness along the arms of one mark, by distance in pitches, as parts of the mark's darkness.
void AddAlongArms(const GrayPicture& picture, const MarkFrame& frame, const BoardFacts& facts,
                  std::array<std::vector<double>, kEndBins>& bins) {
  for (Index stroke = 0; stroke < 2; ++stroke) {
    const double middle = std::max(0.5, 0.25 * frame.width[stroke]);
    const double side = 0.5 * frame.width[stroke] + 2.0 * facts.sigma[stroke] + 0.5;
    for (Index arm = 0; arm < 2; ++arm) {
      StrokeLine line;
      line.origin = frame.centre;
      line.direction = frame.direction[stroke];
      line.shape = {0.0, 0.0, frame.bend[stroke][0], frame.bend[stroke][1]};
      const double scale = facts.armEnd / frame.armLength[stroke][arm];  // pitches per px
      const double reach = kEndReach / scale;
      std::array<double, kEndBins> dark = {};
      std::array<double, kEndBins> darkCounts = {};
      double sides = 0.0;
      double sideCount = 0.0;
      ForEachStrokePixel(picture, line, arm == 0 ? 0.1 * reach : -reach,
                         arm == 0 ? reach : -0.1 * reach, side + 1.5,
                         [&](double level, int, int, double u, double v) {
                           const double part = std::abs(u) / reach;
                           const Index bin = static_cast<Index>(part * kEndBins);
                           if (std::abs(v) <= middle && bin < kEndBins) {
                             dark[bin] += level;
                             darkCounts[bin] += 1.0;
                           } else if (std::abs(v) >= side && part > 0.3) {
                             sides += level;
                             sideCount += 1.0;
                           }
                         });
      for (Index bin = 0; bin < kEndBins && sideCount > 0.0; ++bin) {
        if (darkCounts[bin] > 0.0) {
          bins[bin].push_back((sides / sideCount - dark[bin] / darkCounts[bin]) / frame.darkness);
        }
      }
    }
  }
}

// Where the darkness along the arms falls to half of what it is in their middle, in pitches.
double FindArmEnd(const GrayPicture& picture, const std::vector<MarkFrame>& frames,
                  const BoardFacts& facts) {
  std::array<std::vector<double>, kEndBins> bins;
  for (const MarkFrame& frame : frames) {
    AddAlongArms(picture, frame, facts, bins);
  }
  std::array<double, kEndBins> darkness;
  for (Index bin = 0; bin < kEndBins; ++bin) {
    darkness[bin] = MedianOf(bins[bin]);
  }
  const double binWidth = kEndReach / kEndBins;
  const Index first = static_cast<Index>(kPlateauFrom * facts.armEnd / binWidth);
  const Index last = static_cast<Index>(kPlateauTo * facts.armEnd / binWidth);
  double plateau = 0.0;
  for (Index bin = first; bin <= last; ++bin) {
    plateau += darkness[bin] / static_cast<double>(last - first + 1);
  }
  for (Index bin = last + 1; bin < kEndBins; ++bin) {
    if (darkness[bin] < 0.5 * plateau) {
      const double fall = darkness[bin - 1] - darkness[bin];
      const double part = fall > 0.0 ? (darkness[bin - 1] - 0.5 * plateau) / fall : 0.5;
      const double end = (static_cast<double>(bin) - 0.5 + part) * binWidth;
      return std::min(end, kGoesOn);
    }
  }
  return kGoesOn;
}

bool FitBothProfiles(const GrayPicture& picture, const std::vector<MarkFrame>& frames, bool isFirst,
                     BoardFacts& facts) {
  for (Index stroke = 0; stroke < 2; ++stroke) {
    const std::vector<ProfilePiece> pieces = PiecesOf(frames, facts, stroke);
    WidthAndBlur profile{facts.strokeWidth[stroke], facts.sigma[stroke]};
    if (isFirst ? !GuessProfile(picture, pieces, profile) : !FitProfile(picture, pieces, profile)) {
      return false;
    }
    facts.strokeWidth[stroke] = profile.width;
    facts.sigma[stroke] = profile.sigma;
  }
  return true;
}

}  // namespace

bool MeasureBoard(const GrayPicture& picture, const BoardMap& map,
                  const std::vector<GridLabel>& marks, double noise, double armEnd,
                  BoardFacts& facts) {
  facts.armEnd = armEnd;
  facts.strokeWidth = {0.03, 0.03};  // only so that the frames have a scale across
  facts.sigma = {1.0, 1.0};
  std::vector<MarkFrame> frames;
  for (const GridLabel& mark : marks) {
    MarkFrame frame;
    if (map.Frame(mark.row, mark.column, facts, frame)) {
      frames.push_back(frame);
    }
  }
  if (frames.empty() || !FitBothProfiles(picture, frames, true, facts)) {
    return false;
  }
  // The first round need not be precise: some of the marks are enough.
  std::vector<GridLabel> some = marks;
  some.resize(std::min(kFirstMarks, marks.size()));
  for (const std::vector<GridLabel>& round : {some, marks}) {
    frames = FittedFrames(picture, map, round, noise, facts);
    if (frames.empty() || !FitBothProfiles(picture, frames, false, facts)) {
      return false;
    }
    facts.armEnd = FindArmEnd(picture, frames, facts);
  }
  return true;
}

}  // namespace quorvex::precise
