// Recipe files byte by byte. The last 32 bytes of an input are not part of the file: they choose what is done with the
// sheet that opens it.
#include "fuzz_frame.h"
#include "sheet_life.h"

#include <algorithm>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

const std::size_t CHOICES = 32;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    prepareSheetLife();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::size_t choices = std::min(size, CHOICES);
    writeProjectFile("recipeN.db3", data, size - choices);
    liveThrough(data + size - choices, choices);
    return 0;
}

/// The choices change as often as the file, which has a thousand times more bytes.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    std::mt19937 random(seed);
    if (size < CHOICES || random() % 2 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    for (unsigned i = random() % 4 + 1; i > 0; --i)
        data[size - 1 - random() % CHOICES] = static_cast<std::uint8_t>(random());
    return size;
}
