// The practice report: a plain printed record of a practice, one block for each engagement and a summary of
// hits, average time and score.
#pragma once

#include <string>
#include <vector>

#include "platform/machine.h"
#include "state/practice_state.h"

namespace vorn {

// The lines in their order and fonts. Goes by the record in memory, engagements 1 to targetcount.
std::vector<printed_line> report_lines(const practice_state&);

// Prints the report on the default printer, or into a file that is named after the student.
print_outcome print_report(machine&, const practice_state&);
// Writes it to "printtest.txt" in the working directory, in place of any file of that name. Gives the reason
// when it can't, empty when it did.
std::string write_text_report(const machine&, const practice_state&);

}   // namespace vorn
