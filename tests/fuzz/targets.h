// What the readers of files are tried with: any bytes at all. Each target reads them as its file, and holds
// that what can be read can be written and reads back the same. A broken rule ends the process.
#pragma once

#include <string>

namespace vorn {

void fuzz_items(const std::string& bytes);
void fuzz_range(const std::string& bytes);
void fuzz_practice(const std::string& bytes);
void fuzz_results(const std::string& bytes);

}   // namespace vorn
