#pragma once

#include <memory>
#include <string>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include <shared/common_utils/testing/fake_settings_manager.h>

#include "cert_approver_app.h"
#include "language_setting.h"
#include "register_qml.h"
#include "ui/cert_approver_window/cert_approver_window_view.h"

namespace cert_approver::test {

/// The application without its service, on a screen of 800 by 800 that nobody sees.
class WindowFixture : public ::testing::Test
{
public:
    WindowFixture()
    {
        RegisterQml();
        QObject::connect(&engine,
                         &QQmlEngine::warnings,
                         [](const QList<QQmlError>& warnings)
                         { ADD_FAILURE() << warnings.front().toString().toStdString(); });
    }

    /// Makes the hidden window.
    void Load(const std::string& language)
    {
        settings->settings[LanguagePath] = {language};
        app.installTranslator();
        view = std::dynamic_pointer_cast<ui::CertApproverWindowView>(app.Factory()->CreateWindow());
        ASSERT_NE(view, nullptr);
        quick = qobject_cast<QQuickWindow*>(engine.rootObjects().front());
    }

    /// Shows the window and waits until the dialog is there to its last item and laid out, which
    /// may take more than one picture; its button has the focus a little earlier. The mouse is out
    /// of the way.
    void Show()
    {
        view->Show();
        ASSERT_TRUE(QTest::qWaitFor(
            [this] { return Approve() != nullptr && Approve()->hasActiveFocus(); }));
        QTest::mouseMove(quick, {1, 1});
        ASSERT_TRUE(QTest::qWaitFor(
            [this]
            {
                quick->grabWindow();
                const auto* loader = All("View").value(0)->parentItem();
                const auto* panel = All("InformationPanel").value(0);
                return loader->property("status").toInt() == LoaderReady && panel->width() > 0;
            }));
    }

    /// Waits for the end of the dialog. A dialog that was not answered hangs here.
    Verdict Answer()
    {
        auto verdict = Verdict::Approve;
        app.GetVerdictInteractor()->GetUserVerdict(verdict);
        EXPECT_FALSE(view->IsVisible());
        EXPECT_TRUE(QTest::qWaitFor([this] { return Approve() == nullptr; }));
        return verdict;
    }

    QQuickItem* Cancel()
    {
        return All("QQuickButton").value(0);
    }

    QQuickItem* Approve()
    {
        return All("QQuickButton").value(1);
    }

    /// The items of a class, of Qt or of a document, in the order of the documents.
    QList<QQuickItem*> All(const char* type, QQuickItem* below = nullptr)
    {
        auto* top = below != nullptr ? below : quick->contentItem();
        QList<QQuickItem*> found;
        if (top->inherits(type) || QByteArray(top->metaObject()->className()).startsWith(type))
        {
            found.append(top);
        }
        for (auto* child : top->childItems())
        {
            found.append(All(type, child));
        }
        return found;
    }

    static QRect Area(const QQuickItem* item)
    {
        return item->mapRectToScene(item->boundingRect()).toAlignedRect();
    }

    QString Property(const char* property)
    {
        return engine.rootContext()->contextProperty(QLatin1String(property)).toString();
    }

    static constexpr int LoaderReady = 1;

    int argc = 1;
    char name[5] = "test";
    char* argv[2] = {name, nullptr};
    QGuiApplication application{argc, argv};
    std::shared_ptr<vdi::common_utils_ui::window::IWindowResizer> resizer =
        vdi::common_utils_ui::window::CreateWindowResizer();
    std::shared_ptr<settings_manager::testing::FakeSettingsManager> settings =
        std::make_shared<settings_manager::testing::FakeSettingsManager>();
    std::shared_ptr<ui::CertApproverWindowView> view;
    QQmlApplicationEngine engine;
    OsApplication app{QStringLiteral("cert_approver"), settings, resizer, &engine};
    QQuickWindow* quick = nullptr;
};

}  // namespace cert_approver::test
