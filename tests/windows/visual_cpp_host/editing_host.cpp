// A host that edits lists with the library, and whose lists change hands at every size.
#include "interface/quorvex.h"
#include "tests/windows/visual_cpp_host/runtime.h"

static_assert(sizeof(CalibrationPoint) == 64, "");
static_assert(sizeof(PointList) == 24, "");

namespace {

float PositionOf(Size index) { return 20.0f * static_cast<float>(index); }

CalibrationPoint HostPoint(Size index) {
  CalibrationPoint point;
  point.id = static_cast<int>(index) + 1;
  point.row = 0;
  point.col = static_cast<int>(index);
  point.x = PositionOf(index);
  point.y = -1.0f;
  for (unsigned char& byte : point.reservedAfterY) {
    byte = static_cast<unsigned char>(index & 0xFF);
  }
  return point;
}

void AddAsHost(PointList& points) { points.push_back(HostPoint(points.size())); }

void AddThroughLibrary(PointList& points) {
  HOST_EXPECT(AddCalibrationPt_Coordinate(PositionOf(points.size()), -2.0f, points));
}

// Every point where it was put, by whom it was put.
void ExpectContents(PointList& points) {
  for (Size i = 0; i < points.size(); ++i) {
    const CalibrationPoint& point = points[i];
    HOST_EXPECT(point.x == PositionOf(i));
    if (point.y == -1.0f) {
      HOST_EXPECT(point.id == static_cast<int>(i) + 1);
      HOST_EXPECT(point.reservedAfterY[31] == (i & 0xFF));
    } else {
      HOST_EXPECT(point.y == -2.0f && point.id == -1 && point.row == -1 && point.col == -1);
    }
  }
}

// 63 and 64 records are the last small and the first big block.
void GrowInLibrary() {
  constexpr Size kCounts[] = {1, 2, 63, 64, 65, 127, 128, 129, 5000};
  for (const Size count : kCounts) {
    PointList points;
    for (Size i = 0; i < count; ++i) {
      AddThroughLibrary(points);
    }
    HOST_EXPECT(points.size() == count);
    ExpectContents(points);
  }
}

// A list of the host's that is full, so that the library's next point moves it.
void GrowFullHostLists() {
  for (Size count = 1; count <= 200; ++count) {
    PointList points;
    points.reserve(count);
    while (points.size() < count) {
      AddAsHost(points);
    }
    AddThroughLibrary(points);
    HOST_EXPECT(points.capacity() > count);
    points.shrink_to_fit();
    AddThroughLibrary(points);
    AddAsHost(points);
    ExpectContents(points);
  }
}

void GrowInTurns() {
  unsigned int random = 1;
  for (int round = 0; round < 3000; ++round) {
    PointList points;
    for (int turn = 0; turn < 6; ++turn) {
      random = random * 1664525u + 1013904223u;
      const unsigned int count = (random >> 16) % 60;
      for (unsigned int i = 0; i < count; ++i) {
        turn % 2 == 0 ? AddAsHost(points) : AddThroughLibrary(points);
      }
    }
    ExpectContents(points);
  }
}

void DeleteAndGrowAgain() {
  for (int round = 0; round < 300; ++round) {
    PointList points;
    for (int i = 0; i < 70; ++i) {
      AddAsHost(points);
    }
    for (int i = 0; i < 70; ++i) {
      AddThroughLibrary(points);
    }
    HOST_EXPECT(DeleteCalibrationPt_ID(-1, points));
    HOST_EXPECT(points.size() == 70);
    HOST_EXPECT(DeleteCalibrationPt_Coordinate(PositionOf(69), -1.0f, points));
    HOST_EXPECT(points.size() == 69);
    HOST_EXPECT(!DeleteCalibrationPt_ID(70, points));
    points.shrink_to_fit();
    for (int i = 0; i < 60; ++i) {
      AddThroughLibrary(points);
    }
    ExpectContents(points);
    for (int id = 1; id <= 69; ++id) {
      HOST_EXPECT(DeleteCalibrationPt_ID(id, points));
    }
    HOST_EXPECT(DeleteCalibrationPt_ID(-1, points));
    HOST_EXPECT(points.size() == 0);
    AddThroughLibrary(points);
    ExpectContents(points);
  }
}

void QueryAndMove() {
  PointList points;
  for (int i = 0; i < 100; ++i) {
    AddAsHost(points);
  }
  int row = -7;
  int col = -7;
  float x = -7.0f;
  float y = -7.0f;
  HOST_EXPECT(QueryCalibrationPt_ID(80, row, col, x, y, points));
  HOST_EXPECT(row == 0 && col == 79 && x == PositionOf(79) && y == -1.0f);
  HOST_EXPECT(AlterCalibrationPt_Coordinate(80, 3, 4, 5.5f, 6.5f, points));
  HOST_EXPECT(points[79].row == 3 && points[79].col == 4 && points[79].x == 5.5f &&
              points[79].y == 6.5f);
  HOST_EXPECT(!AlterCalibrationPt_Coordinate(101, 3, 4, 5.5f, 6.5f, points));
}

// What GCC's runtime raises for any C++ exception. No C++ handler of Visual C++ takes it for one of
// its own; a structured one can stop it.
constexpr unsigned long kForeignException = 0x20474343;

unsigned long caughtException = 0;

int Catch(unsigned long code) {
  caughtException = code;
  return 1;  // go on after the __try block
}

// The code of the structured exception that leaves the library; 0 when there is none.
__declspec(noinline) unsigned long ExceptionOfAdding(PointList& points) {
  caughtException = 0;
  __try {
    AddCalibrationPt_Coordinate(1.0f, 2.0f, points);
  } __except (Catch(_exception_code())) {
  }
  return caughtException;
}

// Begins as a list that claims 2^56 points and is full: there is no memory for more.
void RunOutOfMemory() {
  PointList points;
  const Size begin = 64;
  const Size end = begin + (Size(1) << 62);
  const Size claimed[3] = {begin, end, end};
  const Size empty[3] = {};
  __builtin_memcpy(&points, claimed, sizeof points);
  HOST_EXPECT(ExceptionOfAdding(points) == kForeignException);
  HOST_EXPECT(points.size() == Size(1) << 56);
  __builtin_memcpy(&points, empty, sizeof points);
  AddThroughLibrary(points);
  ExpectContents(points);
}

}  // namespace

void RunHost() {
  GrowInLibrary();
  CheckHeap();
  GrowFullHostLists();
  CheckHeap();
  GrowInTurns();
  CheckHeap();
  DeleteAndGrowAgain();
  CheckHeap();
  QueryAndMove();
  RunOutOfMemory();
}
