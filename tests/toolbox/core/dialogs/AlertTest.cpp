#include "toolbox/core/dialogs/Alert.h"

#include <gtest/gtest.h>

namespace {

using Toolbox::Alert;

// Three buttons, of which only the second and third can be pressed.
Alert alertWith(SInt16 defaultButton, SInt16 cancelButton)
{
    Alert alert;
    alert.buttons = {{1, "One", false}, {2, "Two", true}, {3, "Three", true}};
    alert.defaultButton = defaultButton;
    alert.cancelButton = cancelButton;
    return alert;
}

TEST(Alert, TakesCancelElseTheDefaultElseTheFirstThatCanBePressedWhenNobodyCanAnswer)
{
    EXPECT_EQ(alertWith(2, 3).unansweredButton(), 3);
    EXPECT_EQ(alertWith(3, 0).unansweredButton(), 3);
    EXPECT_EQ(alertWith(0, 0).unansweredButton(), 2);
    EXPECT_EQ(Alert().unansweredButton(), 0) << "there is none";
}

}  // namespace
