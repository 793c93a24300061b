// The project's compile options must keep every narrowing to float: gcc 12 from -O2 on drops it
// from pairs of expressions like these unless it is told not to vectorise them
// (cmake/compile_options.cmake).
#include <gtest/gtest.h>

namespace {

struct Pair {
  int first;
  int second;
};

[[gnu::noinline]] Pair RoundedProducts(int factor, double first, double second) {
  return {static_cast<int>(static_cast<double>(static_cast<float>(factor * first)) + 0.5),
          static_cast<int>(static_cast<double>(static_cast<float>(factor * second)) + 0.5)};
}

TEST(Narrowing, ProductIsNarrowedBeforeItIsRounded) {
  volatile double first = 0.3;
  volatile double second =
      -0.49999998509046656;  // times 105 is just above -52.5, narrowed it is -52.5
  const Pair pair = RoundedProducts(105, first, second);
  EXPECT_EQ(pair.first, 32);
  EXPECT_EQ(pair.second, -52);
}

}  // namespace
