#include "map_fuzz.h"

QUELMONT_MAP_FUZZER("fuzz.pkv", "fuc.pkd", "fur.pkd", "fup.pkd", "fuzz.grv")
