// Entry of the tests that need widgets: one QApplication with the program's resources around all of them.
#include "Resources.h"

#include <gtest/gtest.h>

#include <QApplication>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&argc, argv);
    // Qt's offscreen platform never frees its screen: what is taken while the application starts is no leak of ours.
#ifdef __SANITIZE_ADDRESS__
    __lsan_disable();
#endif
    const QApplication application(argc, argv);
#ifdef __SANITIZE_ADDRESS__
    __lsan_enable();
#endif
    Lorvane::InitialiseResources();
    return RUN_ALL_TESTS();
}
