// Must be refused: no header of the machine that checks is in reach.
#include <unistd.h>

int Process() { return getpid(); }
