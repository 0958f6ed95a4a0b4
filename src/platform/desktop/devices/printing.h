// Printing of plain lines, from top to bottom, page after page.
#pragma once

#include <string>
#include <vector>

#include "platform/machine.h"

class QPagedPaintDevice;

namespace vorn {

// Gives the reason when the printer can't be used, empty when all is printed.
std::string print_lines(QPagedPaintDevice&, const std::vector<printed_line>&);

// The same into a PDF file of A4 pages, which takes the place of an old one when it is whole.
std::string print_to_pdf(const machine&, const std::string& file, const std::vector<printed_line>&);

}   // namespace vorn
