// Changes of JSON texts that leave them JSON: single bytes seldom do.
#ifndef JSON_MUTATOR_H
#define JSON_MUTATOR_H

#include <cstddef>
#include <cstdint>

/// For LLVMFuzzerCustomMutator.
std::size_t mutateJson(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed);

#endif
