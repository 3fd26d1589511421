#pragma once

/// What the tests of new and copied load cases have in common.

#include <gtest/gtest.h>

#include "loadcases/number_slider.h"
#include "support/loadcase_project.h"

namespace lctest {

/// A project with a permanent and a variable action, and load cases of the variable one.
class NumberedCases : public testing::Test
{
  protected:
    void fill(std::initializer_list<int> numbers)
    {
        project.putAction(permanent());
        project.putAction(variable());
        for (const int number : numbers) {
            project.putLoadcase(number, titled(following(code("Q")), QString("Case %1").arg(number)));
        }
    }
    /// The number that stands in the number dialog.
    static int proposalOf(QWidget* dialog)
    {
        return static_cast<int>(dialog->findChild<MySlider*>()->getDisplayValue());
    }
    Project project;
};

} // namespace lctest
