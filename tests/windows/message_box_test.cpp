// The three messages as the operator gets them: the finished DLL shows a real box, a second thread
// reads it and presses its button.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <future>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "interface/quorvex.h"
#include "tests/support/bytes.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 60s;        // until a box has to be there, or a call has to return
constexpr auto kStaysOpenFor = 300ms;  // how long a box is watched before it is answered
constexpr wchar_t kDialogClass[] = L"#32770";

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

// The visible dialog of this process; null when there is none.
HWND FindDialog() {
  HWND found = nullptr;
  EnumWindows(
      [](HWND window, LPARAM result) -> BOOL {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process != GetCurrentProcessId() || ClassOf(window) != kDialogClass ||
            !IsWindowVisible(window)) {
          return TRUE;
        }
        *reinterpret_cast<HWND*>(result) = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&found));
  return found;
}

struct Box {
  std::wstring caption;
  std::vector<std::wstring> texts;  // of the static controls that hold one
  std::vector<int> buttons;         // control ids
  DWORD thread = 0;
  HWND owner = nullptr;
  int openWindows = 0;  // other windows of its thread that the operator could use meanwhile
};

Box Read(HWND dialog) {
  Box box;
  box.caption = TextOf(dialog);
  box.thread = GetWindowThreadProcessId(dialog, nullptr);
  box.owner = GetWindow(dialog, GW_OWNER);
  EnumThreadWindows(
      box.thread,
      [](HWND window, LPARAM result) -> BOOL {
        if (ClassOf(window) != kDialogClass && IsWindowVisible(window) && IsWindowEnabled(window)) {
          ++reinterpret_cast<Box*>(result)->openWindows;
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&box));
  EnumChildWindows(
      dialog,
      [](HWND control, LPARAM result) -> BOOL {
        Box& read = *reinterpret_cast<Box*>(result);
        if (ClassOf(control) == L"Button") {
          read.buttons.push_back(GetDlgCtrlID(control));
        } else if (ClassOf(control) == L"Static" && !TextOf(control).empty()) {
          read.texts.push_back(TextOf(control));
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&box));
  return box;
}

// Runs a call on a thread of its own, reads the box that it shows and presses OK. A test that
// waited for a call behind an unanswered box would hang, so the program ends there.
template <typename Call>
Box Answer(Call call) {
  std::packaged_task<DWORD()> task([&call] {
    call();
    return GetCurrentThreadId();
  });
  std::future<DWORD> returned = task.get_future();
  std::thread caller(std::move(task));
  const auto hasReturnedWithin = [&returned](auto time) {
    return returned.wait_for(time) == std::future_status::ready;
  };

  HWND dialog = nullptr;
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (dialog == nullptr && !hasReturnedWithin(20ms) &&
         std::chrono::steady_clock::now() < deadline) {
    dialog = FindDialog();
  }
  Box box;
  if (dialog == nullptr) {
    ADD_FAILURE() << "no box";
  } else {
    EXPECT_FALSE(hasReturnedWithin(kStaysOpenFor)) << "the call did not wait for the operator";
    box = Read(dialog);
    PostMessageW(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
  }
  if (!hasReturnedWithin(kPatience)) {
    std::cout << "the call does not return" << std::endl;
    std::_Exit(EXIT_FAILURE);
  }
  EXPECT_FALSE(IsWindow(dialog));
  if (dialog != nullptr) {
    EXPECT_EQ(box.thread, returned.get());
  }
  caller.join();
  return box;
}

void ExpectMessage(const Box& box, const wchar_t* text) {
  EXPECT_EQ(box.texts, std::vector<std::wstring>{text});
  EXPECT_EQ(box.caption, L"quorvex");
  EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
}

PointList TwelvePoints() {
  PointList points;
  for (int i = 0; i < 12; ++i) {
    points.push_back(MakePoint(i, i / 4, i % 4, 50.0f * static_cast<float>(i % 4),
                               50.0f * static_cast<float>(i / 4)));
  }
  return points;
}

bool AreEqual(const PointList& left, const PointList& right) {
  return left.size() == right.size() &&
         std::memcmp(left.data(), right.data(), left.size() * sizeof left[0]) == 0;
}

TEST(MessageBoxTest, UnevenSizeOfAPicture) {
  const TemporaryDirectory directory;
  std::vector<unsigned char> image(641 * 480, 7);
  const PointList before = TwelvePoints();
  PointList points = before;
  bool result = true;
  const Box box = Answer([&] {
    result =
        SingleCamDetectCalibrationPoint(image.data(), 641, 480, 8, 20, 20, 0.0f, 0.0f, 300, points);
  });
  ExpectMessage(box, L"图像宽度和高度必须是4的整数倍！");
  EXPECT_FALSE(result);
  EXPECT_TRUE(AreEqual(points, before));
  // Headers, palette, and rows padded from 641 to 644 bytes.
  EXPECT_EQ(std::filesystem::file_size("ProImage.bmp"), 14u + 40u + 1024u + 644u * 480u);
  EXPECT_FALSE(std::filesystem::exists("Binarization.bmp"));
}

TEST(MessageBoxTest, DepthWithoutColour) {
  Bytes pixels(4, 200);
  Bytes grey(4, 77);
  const Box box = Answer([&] { ConvertRGBToGray(pixels.data(), 2, 2, 8, grey.data()); });
  ExpectMessage(box, L"图像数据应为8位、24位或32位！");
  EXPECT_EQ(grey, Bytes(4, 77));
}

TEST(MessageBoxTest, WrongNumberOfPoints) {
  const PointList before = TwelvePoints();
  PointList points = before;
  bool result = true;
  const Box box = Answer([&] { result = ReAssignmentID(3, 3, points); });
  ExpectMessage(box, L"点集数量与行列数不一致！");
  EXPECT_FALSE(result);
  EXPECT_TRUE(AreEqual(points, before));
}

// A host's window on the thread that calls the library.
class HostWindow {
 public:
  HostWindow()
      : handle_(CreateWindowW(L"Static", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                              nullptr, nullptr, nullptr, nullptr)) {}
  ~HostWindow() { DestroyWindow(handle_); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND Handle() const { return handle_; }

 private:
  HWND handle_;
};

TEST(MessageBoxTest, BelongsToTheActiveWindowOfItsThread) {
  HWND active = nullptr;
  bool isEnabledAfterwards = false;
  const Box box = Answer([&] {
    const HostWindow window;
    SetActiveWindow(window.Handle());
    active = GetActiveWindow();
    PointList points = TwelvePoints();
    ReAssignmentID(3, 3, points);
    isEnabledAfterwards = IsWindowEnabled(window.Handle()) != FALSE;
  });
  ASSERT_NE(active, nullptr);
  EXPECT_EQ(box.owner, active);
  EXPECT_EQ(box.openWindows, 0);
  EXPECT_TRUE(isEnabledAfterwards);
}

TEST(MessageBoxTest, ClosesTheThreadsWindowsAlsoWhereNoneIsActive) {
  HWND active = nullptr;
  bool isEnabledAfterwards = false;
  const Box box = Answer([&] {
    const HostWindow window;
    const HostWindow other;
    SetActiveWindow(nullptr);
    active = GetActiveWindow();
    PointList points = TwelvePoints();
    ReAssignmentID(3, 3, points);
    isEnabledAfterwards = IsWindowEnabled(window.Handle()) && IsWindowEnabled(other.Handle());
  });
  ASSERT_EQ(active, nullptr);
  EXPECT_EQ(box.owner, nullptr);
  EXPECT_EQ(box.openWindows, 0);
  EXPECT_TRUE(isEnabledAfterwards);
}

}  // namespace
}  // namespace quorvex::tests
