#include "map_fuzz.h"

QUELMONT_MAP_FUZZER("fuzz.prn", "fuzz.utm")
