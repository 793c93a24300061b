#include "crossmark/hough_votes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <utility>

#include "base/gray_image.h"

namespace quorvex::tests {
namespace {

using Counts = std::map<std::pair<int, int>, int>;  // votes by degree and distance

int DistanceOf(int x, int y, int degree) {
  const double angle = degree * 3.1415926 / 180.0;
  const volatile float alongX = static_cast<float>(x) * static_cast<float>(std::cos(angle));
  const volatile float alongY = static_cast<float>(y) * static_cast<float>(std::sin(angle));
  return static_cast<int>(alongX + alongY) / 2;
}

Counts CountOneByOne(const GrayImage& image) {
  Counts counts;
  for (int y = 0; y < image.Height(); ++y) {
    for (int x = 0; x < image.Width() - 1; ++x) {
      for (int degree = 0; image.Data()[PixelOffset(x, y, image.Width())] == 255 && degree < 180;
           ++degree) {
        ++counts[{degree, DistanceOf(x, y, degree)}];
      }
    }
  }
  return counts;
}

Counts CountAtOnce(HoughVotes& votes, const GrayImage& image) {
  votes.Cast(image.Data(), 255);
  std::vector<HoughBin> bins;
  votes.AppendBins(0, votes.Most(), bins);
  Counts counts;
  for (const HoughBin& bin : bins) {
    EXPECT_EQ(votes.Collect(bin).size(), static_cast<std::size_t>(bin.votes));
    counts[{bin.degree, bin.distance}] = bin.votes;
  }
  EXPECT_EQ(counts.size(), bins.size());
  return counts;
}

TEST(HoughVotes, AreThoseThatAreCountedOneByOne) {
  std::mt19937 random(1);
  for (const auto& [width, height] : {std::pair{1, 9}, {2, 2}, {9, 1}, {31, 17}, {40, 64}}) {
    HoughVotes votes(width, height);
    for (const unsigned oneOf : {1u, 3u, 20u}) {
      GrayImage image(width, height);
      for (std::size_t i = 0; i < image.Size(); ++i) {
        image.Data()[i] = random() % oneOf == 0 ? 255 : 254;
      }
      EXPECT_EQ(CountAtOnce(votes, image), CountOneByOne(image)) << width << " x " << height;
    }
  }
}

// More strokes than the counters of the steps hold.
TEST(HoughVotes, OfALargeWhiteImageAreAllCounted) {
  GrayImage image(301, 260);
  image.Fill(255);
  HoughVotes votes(301, 260);
  votes.Cast(image.Data(), 255);
  std::vector<HoughBin> bins;
  votes.AppendBins(0, votes.Most(), bins);
  long long sum = 0;
  for (const HoughBin& bin : bins) {
    sum += bin.votes;
  }
  EXPECT_EQ(sum, 180LL * 300 * 260);
}

TEST(HoughVotes, BinsComeBetweenTheLimitsInOrder) {
  GrayImage image(50, 50);
  for (int x = 5; x < 45; ++x) {
    image.Data()[PixelOffset(x, 20, 50)] = 255;
  }
  HoughVotes votes(50, 50);
  votes.Cast(image.Data(), 255);
  EXPECT_EQ(votes.Most(), 40);
  std::vector<HoughBin> bins;
  votes.AppendBins(30, 39, bins);
  ASSERT_FALSE(bins.empty());
  for (std::size_t i = 0; i < bins.size(); ++i) {
    EXPECT_GT(bins[i].votes, 30);
    EXPECT_LE(bins[i].votes, 39);
    EXPECT_TRUE(i == 0 || std::pair(bins[i - 1].degree, bins[i - 1].distance) <
                              std::pair(bins[i].degree, bins[i].distance));
  }
}

}  // namespace
}  // namespace quorvex::tests
