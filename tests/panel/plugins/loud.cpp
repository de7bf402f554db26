// The lamp, in a library that speaks when it is loaded.
#include "lamp.cpp"

#include <cstdio>

namespace {

struct Loud
{
    Loud()
    {
        std::puts("loaded");
        std::fflush(stdout);
    }
};

const Loud loud;

} // namespace
