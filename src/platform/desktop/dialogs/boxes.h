// What a file dialog offers.
#pragma once

#include <QStringList>
#include <string>

namespace vorn {

// "Range Files (*.arf)|*.arf|", pairs of a name and its patterns, in the form that the toolkit wants.
QStringList name_filters(const std::string& pairs);

}   // namespace vorn
