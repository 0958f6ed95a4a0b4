// The filters of a file dialog.
#pragma once

#include <QStringList>
#include <string>

namespace vorn {

// Converts "Range Files (*.arf)|*.arf|", pairs of name and patterns, to Qt's name filters.
QStringList name_filters(const std::string& pairs);

}   // namespace vorn
