#pragma once

/// What the tests of new and copied load cases have in common.

#include <gtest/gtest.h>

#include "loadcases/number_slider.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace mrl::test {

/// A project with a permanent and a variable action, and load cases of the variable one.
class NumberedCases : public testing::Test
{
  protected:
    void fill(std::initializer_list<int> numbers)
    {
        project.putAction(permanent());
        project.putAction(variable());
        for (const int number : numbers) {
            project.putLoadCase(number, following(codeOf("Q")).title(QString("Case %1").arg(number)));
        }
    }
    /// The number that stands in the number dialog.
    static int proposalOf(QWidget* dialog)
    {
        return static_cast<int>(dialog->findChild<MySlider*>()->getDisplayValue());
    }
    LoadCaseProject project;
};

} // namespace mrl::test
