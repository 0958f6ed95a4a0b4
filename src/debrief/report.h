// The practice report: the student, the engagements, and a summary of hits, average time and score.
#pragma once

#include <string>
#include <vector>

#include "platform/machine.h"
#include "state/practice_state.h"

namespace vorn {

// The lines of the report with their fonts, for engagements 1 to targetcount of the record in memory.
std::vector<printed_line> report_lines(const practice_state&);

// Writes the report to "printtest.txt" in the working directory and replaces an existing file. Returns the
// reason for a failure, empty on success.
std::string write_text_report(const machine&, const practice_state&);

}   // namespace vorn
