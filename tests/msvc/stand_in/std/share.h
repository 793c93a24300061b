#pragma once
#define _SH_DENYWR 0x20
