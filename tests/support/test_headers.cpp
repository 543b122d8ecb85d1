// The headers that are precompiled for all test programs are compiled with this file.
