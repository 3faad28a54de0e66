#include <QByteArray>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// No screen, no GPU, and the fonts that the dialog is laid out for, however the tests are started.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("FONTCONFIG_FILE", TVO_TEST_FONTS);
    qputenv("TZ", "UTC");
    testing::InitGoogleMock(&argc, argv);
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    return RUN_ALL_TESTS();
}
