#include <cstdlib>

#include <QGuiApplication>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <support/picture.h>

int main(int argc, char** argv)
{
    const QTemporaryDir runtimeFolder;
    setenv("TVO_RUNTIME_DIR", runtimeFolder.path().toUtf8(), 1);
    support::PrepareDrawing();
    QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
