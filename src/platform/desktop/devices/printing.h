// Prints lines of text from top to bottom, page after page.
#pragma once

#include <string>
#include <vector>

#include "platform/machine.h"

class QPagedPaintDevice;

namespace vorn {

// Returns the reason why printing failed, or an empty text.
std::string print_lines(QPagedPaintDevice&, const std::vector<printed_line>&);

// Prints to a PDF file of A4 pages. If this fails, an existing file stays unchanged.
std::string print_to_pdf(const machine&, const std::string& file, const std::vector<printed_line>&);

}   // namespace vorn
