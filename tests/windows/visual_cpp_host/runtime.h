// What the mock hosts have under their feet: the system's C runtime and heap, as a program of
// Visual C++ with its release runtime in a DLL (/MD) uses them, and a way to report.
#ifndef QUORVEX_TESTS_WINDOWS_VISUAL_CPP_HOST_RUNTIME_H_
#define QUORVEX_TESTS_WINDOWS_VISUAL_CPP_HOST_RUNTIME_H_

using Size = decltype(sizeof 0);

// Memory of a vector, by the rule of Visual C++'s allocator: blocks of 4096 bytes and more are
// aligned to 32 by hand, with the address that malloc gave in the 8 bytes before them. Giving back
// checks the same way and ends the program with a message where the rule is broken, or where the
// heap does not know the memory or knows it as a smaller block.
void* TakeBlock(Size bytes);
void GiveBack(void* block, Size bytes);

struct BlockCounts {
  long long taken;
  long long givenBack;
  long long bigGivenBack;
};
extern BlockCounts blockCounts;

void Print(const char* text);
void PrintNumber(long long number);

// Ends the program with exit code 1 after a line on standard error.
[[noreturn]] void Fail(const char* place, const char* condition);

// Fails unless every block of the heap is sound.
void CheckHeap();

#define HOST_TEXT(number) HOST_TEXT_OF(number)
#define HOST_TEXT_OF(number) #number
#define HOST_EXPECT(condition)                            \
  do {                                                    \
    if (!(condition)) {                                   \
      Fail(__FILE__ ":" HOST_TEXT(__LINE__), #condition); \
    }                                                     \
  } while (false)

// The host's own work.
void RunHost();

#endif  // QUORVEX_TESTS_WINDOWS_VISUAL_CPP_HOST_RUNTIME_H_
