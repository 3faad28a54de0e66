#include <QGuiApplication>
#include <gmock/gmock.h>

#include <support/picture.h>

int main(int argc, char** argv)
{
    support::PrepareDrawing();
    QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
