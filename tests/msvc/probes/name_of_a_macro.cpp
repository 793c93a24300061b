// Must be refused: windows.h makes a macro of that name.
#include "platform/mfc.h"

float Nearest(float near, float other) { return near < other ? near : other; }
