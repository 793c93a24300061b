#include "precise/profile_steps.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tests/precise/drawn_board.h"

namespace quorvex::tests {
namespace {

using precise::FitProfile;
using precise::GrayPicture;
using precise::GuessProfile;
using precise::ProfilePiece;
using precise::WidthAndBlur;

// Both arms along the columns, clear of crossing and end.
std::vector<ProfilePiece> PiecesOf(const DrawnBoard& board) {
  std::vector<ProfilePiece> pieces(2);
  const double length = board.arm * board.step.norm();
  for (ProfilePiece& piece : pieces) {
    piece.line.origin = board.first;
    piece.line.direction = board.step.normalized();
    piece.pitch = board.step.norm();
  }
  pieces[0].from = 0.35 * length;
  pieces[0].to = 0.85 * length;
  pieces[1].from = -0.85 * length;
  pieces[1].to = -0.35 * length;
  return pieces;
}

TEST(ProfileSteps, FindWidthAndBlur) {
  for (const double degrees : {0.0, 20.0}) {
    DrawnBoard board;
    board.width = board.height = 130;
    board.first = {65.2, 64.9};
    board.step = {80.0, degrees > 0.0 ? 27.0 : 0.0};
    board.stroke = 4.0;
    board.blur = 1.1;
    const GrayPicture picture = board.Draw();
    WidthAndBlur profile;
    ASSERT_TRUE(GuessProfile(picture, PiecesOf(board), profile));
    EXPECT_NEAR(profile.width * board.step.norm(), 4.0, 1.4);
    ASSERT_TRUE(FitProfile(picture, PiecesOf(board), profile));
    EXPECT_NEAR(profile.width * board.step.norm(), 4.0, 0.05) << degrees;
    EXPECT_NEAR(profile.sigma, 1.1, 0.05) << degrees;
  }
}

// Beside a bent line some pixels are a little farther away than was asked for.
TEST(ProfileSteps, GuessOfABentStroke) {
  GrayPicture picture(400, 400, 180);
  ProfilePiece piece;
  piece.line.origin = {200, 200};
  piece.line.direction = Eigen::Vector2d(160, 130).normalized();
  piece.line.shape = {0, 0, -0.004, 0};
  piece.from = 30;
  piece.to = 110;
  piece.pitch = 160;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const Eigen::Vector2d away = Eigen::Vector2d(x, y) - piece.line.origin;
      const double u = away.dot(piece.line.direction);
      if (std::abs(away.dot(piece.line.Normal()) - piece.line.Offset(u)) < 2) {
        picture.Row(y)[x] = 20;
      }
    }
  }
  WidthAndBlur profile;
  ASSERT_TRUE(GuessProfile(picture, {piece}, profile));
  EXPECT_NEAR(profile.width * piece.pitch, 4.0, 1.4);
}

TEST(ProfileSteps, NothingDarkGivesNothing) {
  const GrayPicture picture(130, 130, 90);
  WidthAndBlur profile;
  EXPECT_FALSE(GuessProfile(picture, PiecesOf(DrawnBoard()), profile));
  EXPECT_FALSE(FitProfile(picture, {}, profile));
}

TEST(ProfileSteps, LightStrokesGiveNothing) {
  DrawnBoard board;
  board.board = 40;
  board.mark = 200;
  WidthAndBlur profile;
  profile.width = 0.08;
  profile.sigma = 1.0;
  EXPECT_FALSE(FitProfile(board.Draw(), PiecesOf(board), profile));
}

TEST(ProfileSteps, PiecesBesideThePictureGiveNothing) {
  DrawnBoard board;
  const GrayPicture picture = board.Draw();
  board.first = {700, 700};
  WidthAndBlur profile;
  profile.width = 0.08;
  profile.sigma = 1.0;
  EXPECT_FALSE(GuessProfile(picture, PiecesOf(board), profile));
  EXPECT_FALSE(FitProfile(picture, PiecesOf(board), profile));
}

}  // namespace
}  // namespace quorvex::tests
