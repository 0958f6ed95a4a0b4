// The results file (.vrn): one practice with its student and range. What it stores for each engagement
// includes the ammunition, the time, and the offsets of lase, aim and rounds. It always has 520 lines of item
// text (state/item_text.h); rows 0 to 15 of the record are stored, row 16 is not.
#pragma once

#include <functional>
#include <string>

#include "state/item_text.h"
#include "state/practice_state.h"

namespace vorn {

// Number of rows of the record that a file contains.
inline constexpr int stored_rows = 16;

// The current record as the bytes of a results file. Range name and picture path are truncated or padded to
// 20 and 60 characters.
std::string results_file_bytes(const practice_state&);

// Reads a record, and calls `head_taken` after its header: student, number of engagements, range, picture,
// mode. Returns false at the first item that can't be read, or if the number of engagements is negative or
// above 15; keeps what was read before. Ignores text after the last item.
bool take_results(item_reader&, practice_state&, const std::function<void()>& head_taken);

}   // namespace vorn
