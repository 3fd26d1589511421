#pragma once

#include <QString>

#include <set>

/// "5 load cases: 1-3, 7, 9". Of many ranges the first ones stand for all.
QString lcm_numbers_line(const std::set<int>& numbers);
