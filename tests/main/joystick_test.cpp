#include "main/joystick.h"

#include "tests/support/joystick.h"

#include <gtest/gtest.h>

#include <functional>

// Axes and buttons show the moment of the last update, and what a device lacks is at rest,
// as is all of one that did not open.
TEST(Joystick, IsReadByPolling) {
    PluggedJoystick device(2, 1);
    const Joystick joystick(0), closed(1);
    device.axes = {-32768, 32767};
    device.buttons = {true};
    EXPECT_FALSE(joystick.getAxis(0) || joystick.isButtonPressed(0));
    joystick.update();
    EXPECT_EQ(joystick.getAxis(0), -32768);
    EXPECT_TRUE(joystick.isButtonPressed(0));
    for (const Joystick& stick : {std::cref(joystick), std::cref(closed)})
        for (const int lacking : {-1, 2})
            EXPECT_FALSE(stick.hasAxis(lacking) || stick.getAxis(lacking) ||
                         stick.isButtonPressed(lacking));
}
