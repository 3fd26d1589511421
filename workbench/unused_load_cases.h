#pragma once

#include <QString>

#include <vector>

namespace mrl::workbench {

struct UnusedLoadCase
{
    int number = 0;
    QString title;
};

/// The load cases that nothing uses: they carry no dead weight, are no imperfection, and no other group of the project
/// holds a record under their number.
std::vector<UnusedLoadCase> unusedLoadCases(int db);

/// Removes load cases, all or none. @return whether they are gone
bool removeLoadCases(int db, const std::vector<UnusedLoadCase>& loadCases);

} // namespace mrl::workbench
