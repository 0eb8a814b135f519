// Entry of the tests that need widgets: one QApplication with the program's resources around all of them.
#include "Resources.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    Lorvane::InitialiseResources();
    return RUN_ALL_TESTS();
}
