// Fuzz targets of the file readers. Each reads the bytes as one kind of file and checks that what could be
// read can be written and reads back the same. A failed check aborts the process.
#pragma once

#include <string>

namespace vorn {

void fuzz_items(const std::string& bytes);
void fuzz_range(const std::string& bytes);
void fuzz_practice(const std::string& bytes);
void fuzz_results(const std::string& bytes);

}   // namespace vorn
