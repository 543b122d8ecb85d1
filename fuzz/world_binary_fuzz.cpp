#include "map_fuzz.h"

QUELMONT_MAP_FUZZER("fuzz.mps")
