// The results file (.vrn): one finished practice, who fired it, on which range, and for each engagement what
// was fired, how long it took and where laser, aim and rounds went. 520 lines of item text, however few
// engagements there were; rows 0 to 15 of the record are stored, row 16 never.
#pragma once

#include <string>

#include "platform/machine.h"
#include "state/item_text.h"
#include "state/practice_state.h"

namespace vorn {

// Rows of the record that a file holds.
inline constexpr int stored_rows = 16;

// The file's bytes for the record in hand. Range name and picture path stand with 20 and 60 characters, cut
// or padded.
std::string results_file_bytes(const practice_state&);

// Each take gives false when it fails; what was read before the failure stays.

// Lines 1 to 5: student, number of engagements, range, picture and mode. Fails at a number of engagements
// that the record has no rows for.
bool take_results_head(item_reader&, practice_state&);
// Lines 6 to 520: the icons and the tables.
bool take_results_rest(item_reader&, practice_state&);
// Both, from a file's text. Lines beyond the last are left alone.
bool take_results(const std::string& text, practice_state&);

// Gives the reason when it fails, empty when it didn't.
std::string write_results(const machine&, const std::string& file, const practice_state&);

}   // namespace vorn
