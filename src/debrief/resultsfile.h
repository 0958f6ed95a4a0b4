// The results file (.vrn): one finished practice, its student and range, and for each engagement what was
// fired, how long it took and where laser, aim and rounds went. Always 520 lines of item text; rows 0 to 15
// of the record are stored, row 16 is not.
#pragma once

#include <functional>
#include <string>

#include "platform/machine.h"
#include "state/item_text.h"
#include "state/practice_state.h"

namespace vorn {

// Rows of the record that a file contains.
inline constexpr int stored_rows = 16;

// The bytes of a file with the current record. Range name and picture path are cut or padded to 20 and 60
// characters.
std::string results_file_bytes(const practice_state&);

// Reads a record, and calls `head_taken` after the head: student, number of engagements, range, picture,
// mode. False at the first item that can't be read, or at a number of engagements for which the record has no
// rows; what was read before stays. Ignores text after the last item.
bool take_results(item_reader&, practice_state&, const std::function<void()>& head_taken = {});

// Returns the reason for a failure, empty on success.
std::string write_results(const machine&, const std::string& file, const practice_state&);

}   // namespace vorn
