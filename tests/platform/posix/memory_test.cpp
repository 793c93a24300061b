#include <type_traits>

#include "platform/mfc.h"

// Windows has one type for all handles and for addresses; what is mixed up is found here.

// A handle is no address: it neither converts to a pointer to memory nor from one, nor are the two
// heaps' handles mixed up.
static_assert(!std::is_convertible_v<HLOCAL, unsigned char*>);
static_assert(!std::is_convertible_v<LPVOID, HLOCAL>);
static_assert(!std::is_convertible_v<HLOCAL, HGLOBAL>);
static_assert(!std::is_convertible_v<HGLOBAL, HLOCAL>);
