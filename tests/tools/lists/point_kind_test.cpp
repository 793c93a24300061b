#include "tools/lists/point_kind.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(PointKind, NamesAreReadBack) {
  for (const PointKind kind : {PointKind::kUnknown, PointKind::kSeen, PointKind::kFilled}) {
    EXPECT_EQ(KindNamed(KindName(kind)), kind);
  }
  EXPECT_STREQ(KindName(PointKind::kSeen), "seen");
  EXPECT_STREQ(KindName(PointKind::kFilled), "filled");
}

TEST(PointKind, OtherWordsAreNone) {
  for (const char* name : {"failed", "Seen", " seen", "unknown"}) {
    EXPECT_FALSE(KindNamed(name)) << name;
  }
}

}  // namespace
}  // namespace quorvex::tests
