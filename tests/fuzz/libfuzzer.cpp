// Entry point of a fuzzer. The build defines VORN_FUZZ_TARGET as the name of the target.
#include <cstddef>
#include <cstdint>
#include <string>

#include "targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vorn::VORN_FUZZ_TARGET(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
