// The entry of a fuzzer that feeds one of the targets; which one the build says.
#include <cstddef>
#include <cstdint>

#include "targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vorn::VORN_FUZZ_TARGET(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
