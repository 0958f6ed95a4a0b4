#include "debrief/resultsfile.h"

namespace vorn {

template <class table, class visitor>
static bool each_row(table& t, const visitor& visit)
{
    for (int e = 0; e < stored_rows; ++e)
        if (!visit(t[e])) return false;
    return true;
}

template <class table, class visitor>
static bool each_round(table& t, const visitor& visit)
{
    return each_row(t, [&](auto& rounds) {
        for (auto& r : rounds)
            if (!visit(r)) return false;
        return true;
    });
}

// Visits the items of lines 6 to 520 in order, to read or to write them. Stops when the visitor returns
// false.
template <class record, class visitor>
static bool each_of_rest(record& p, const visitor& visit)
{
    const auto texts = [&](auto&... t) { return (visit(t) && ...); };
    const auto rows = [&](auto&... t) { return (each_row(t, visit) && ...); };
    const auto rounds = [&](auto&... t) { return (each_round(t, visit) && ...); };
    return texts(p.resulticon1, p.resulticon2, p.resulticon3) &&
           rows(p.recsystem, p.rectarget, p.recrounds, p.recammo, p.rechit, p.rectime) &&
           rows(p.recwidth, p.recrange, p.recx, p.recy, p.reclazex, p.reclazey) &&
           rounds(p.recaimx, p.recaimy, p.recfallx, p.recfally);
}

std::string results_file_bytes(const practice_state& p)
{
    item_writer items;
    items.put(p.studentdetails);
    items.put(p.targetcount);
    items.put(padded<20>(p.resultrange));
    items.put(padded<60>(p.resultpicture));
    items.put(p.resultmode);
    each_of_rest(p, [&](const auto& field) {
        items.put(field);
        return true;
    });
    return items.file_bytes();
}

bool take_results(item_reader& items, practice_state& p, const std::function<void()>& head_taken)
{
    int16 count;
    if (!items.take(p.studentdetails) || !items.take(count)) return false;
    // The report goes through the engagements 1 to targetcount. A count above 15 would include rows that the
    // file doesn't contain, and one above 16 would index past the end of the tables.
    if (count < 0 || count >= stored_rows) return false;
    p.targetcount = count;
    if (!items.take(p.resultrange) || !items.take(p.resultpicture) || !items.take(p.resultmode)) return false;
    head_taken();
    return each_of_rest(p, [&](auto& field) { return items.take(field); });
}

}   // namespace vorn
