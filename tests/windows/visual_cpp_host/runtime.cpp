#include "tests/windows/visual_cpp_host/runtime.h"

// ucrtbase.dll
extern "C" __declspec(dllimport) void* malloc(Size bytes);
extern "C" __declspec(dllimport) void free(void* memory);
extern "C" __declspec(dllimport) Size _msize(void* memory);
extern "C" __declspec(dllimport) long long _get_heap_handle();

// kernel32.dll
extern "C" __declspec(dllimport) void* GetStdHandle(unsigned long which);
extern "C" __declspec(dllimport) int WriteFile(void* file, const void* bytes, unsigned long count,
                                               unsigned long* written, void* overlapped);
extern "C" __declspec(dllimport) int HeapValidate(void* heap, unsigned long flags,
                                                  const void* memory);
[[noreturn]] extern "C" __declspec(dllimport) void ExitProcess(unsigned int exitCode);

// The compiler asks for it where floating point is used.
extern "C" int _fltused = 0;

BlockCounts blockCounts = {};

namespace {

constexpr Size kBigBlock = 4096;  // bytes
constexpr Size kAlignment = 32;
constexpr Size kSmallestDistance = sizeof(void*);  // from malloc's address to the block
constexpr Size kExtra = kSmallestDistance + kAlignment - 1;
static_assert(kExtra == 39, "");

void Write(unsigned long stream, const char* text) {
  unsigned long length = 0;
  while (text[length] != '\0') {
    ++length;
  }
  unsigned long written = 0;
  WriteFile(GetStdHandle(stream), text, length, &written, nullptr);
}

constexpr unsigned long kStandardOutput = static_cast<unsigned long>(-11);
constexpr unsigned long kStandardError = static_cast<unsigned long>(-12);

[[noreturn]] void Corrupt(const char* what) {
  Write(kStandardError, "host: corrupt list: ");
  Write(kStandardError, what);
  Write(kStandardError, "\n");
  ExitProcess(3);
}

void* Heap() { return reinterpret_cast<void*>(_get_heap_handle()); }

// What malloc gave for a big block.
void* CheckedMemory(void* block) {
  void* const memory = static_cast<void**>(block)[-1];
  const Size distance = reinterpret_cast<Size>(block) - reinterpret_cast<Size>(memory);
  if (distance < kSmallestDistance || distance > kExtra) {
    Corrupt("a big block without malloc's address before it");
  }
  return memory;
}

}  // namespace

void* TakeBlock(Size bytes) {
  ++blockCounts.taken;
  if (bytes < kBigBlock) {
    return malloc(bytes);
  }
  void* const memory = malloc(bytes + kExtra);
  void** const block =
      reinterpret_cast<void**>((reinterpret_cast<Size>(memory) + kExtra) & ~(kAlignment - 1));
  block[-1] = memory;
  return block;
}

void GiveBack(void* block, Size bytes) {
  const bool isBig = bytes >= kBigBlock;
  void* const memory = isBig ? CheckedMemory(block) : block;
  if (!HeapValidate(Heap(), 0, memory)) {
    Corrupt("memory that the host's heap does not know");
  }
  if (_msize(memory) < bytes + reinterpret_cast<Size>(block) - reinterpret_cast<Size>(memory)) {
    Corrupt("a block smaller than its list says");
  }
  ++blockCounts.givenBack;
  blockCounts.bigGivenBack += isBig ? 1 : 0;
  free(memory);
}

void CheckHeap() {
  if (!HeapValidate(Heap(), 0, nullptr)) {
    Corrupt("the heap is damaged");
  }
}

void Print(const char* text) { Write(kStandardOutput, text); }

void PrintNumber(long long number) {
  if (number >= 10) {
    PrintNumber(number / 10);
  }
  const char digit[2] = {static_cast<char>('0' + number % 10), '\0'};
  Print(digit);
}

void Fail(const char* place, const char* condition) {
  Write(kStandardError, place);
  Write(kStandardError, ": host: does not hold: ");
  Write(kStandardError, condition);
  Write(kStandardError, "\n");
  ExitProcess(1);
}

extern "C" int HostMain() {
  RunHost();
  CheckHeap();
  HOST_EXPECT(blockCounts.bigGivenBack > 0);
  PrintNumber(blockCounts.givenBack);
  Print(" blocks given back, ");
  PrintNumber(blockCounts.bigGivenBack);
  Print(" of them big; ");
  PrintNumber(blockCounts.taken);
  Print(" were the host's own\n");
  ExitProcess(0);
}
