#pragma once

#include <memory>
#include <string>

#include <QQmlApplicationEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include <shared/common_utils_ui/translate/translation_installer.h>
#include <shared/ui_kit/style/palette_factory.h>
#include <shared/ui_kit/style/palette_id_interactor.h>

#include "fakes.h"
#include "register_qml.h"
#include "ui/cert_approver_window/cert_approver_window_factory.h"

namespace cert_approver::test {

/// The real window with its real documents, and somebody else at both ends of it.
class DialogFixture : public ::testing::Test
{
public:
    DialogFixture()
    {
        QObject::connect(&engine,
                         &QQmlEngine::warnings,
                         [](const QList<QQmlError>& warnings)
                         { ADD_FAILURE() << warnings.front().toString().toStdString(); });
    }

    /// Loads the hidden window in a language.
    void Load(const std::string& language = "en-US")
    {
        RegisterQml();
        ASSERT_EQ(translations->Install("cert_approver", language), 0);
        paletteId->SetPaletteId(vdi::uikit::utils::style::PaletteId::Dark);
        ui::CertApproverWindowFactory factory(
            &engine,
            getter,
            setter,
            [](const std::string& fallback)
            { return std::make_unique<FakeLanguageReader>(fallback); },
            resizer,
            paletteId,
            vdi::uikit::utils::style::CreatePaletteFactory());
        window = factory.CreateWindow();
        ASSERT_NE(window, nullptr);
        ASSERT_EQ(engine.rootObjects().size(), 1);
        quick = qobject_cast<QQuickWindow*>(engine.rootObjects().front());
        ASSERT_NE(quick, nullptr);
    }

    /// Shows the window and waits until the dialog is complete, which is when it takes the focus,
    /// and laid out, which is done for a picture at the latest. The mouse is out of the way.
    void Show()
    {
        window->Show();
        ASSERT_TRUE(QTest::qWaitFor([this] { return Focused() != nullptr; }));
        QTest::mouseMove(quick, {1, 1});
        quick->grabWindow();
    }

    [[nodiscard]] bool HasDialog() const
    {
        return !All("QQuickButton").isEmpty();
    }

    [[nodiscard]] QQuickItem* Focused() const
    {
        auto* item = quick->activeFocusItem();
        return item != nullptr && item->inherits("QQuickButton") ? item : nullptr;
    }

    [[nodiscard]] QQuickItem* Cancel() const
    {
        return All("QQuickButton").value(0);
    }

    [[nodiscard]] QQuickItem* Approve() const
    {
        return All("QQuickButton").value(1);
    }

    /// The items of a class, of Qt or of a document, in the order of the documents.
    [[nodiscard]] QList<QQuickItem*> All(const char* type) const
    {
        QList<QQuickItem*> found;
        Collect(quick->contentItem(), type, found);
        return found;
    }

    /// The text item that shows just this.
    [[nodiscard]] QQuickItem* Text(const QString& text) const
    {
        for (auto* item : All("QQuickText"))
        {
            if (item->property("text").toString() == text)
            {
                return item;
            }
        }
        return nullptr;
    }

    static QRect Area(const QQuickItem* item)
    {
        return item->mapRectToScene(item->boundingRect()).toAlignedRect();
    }

    void Press(Qt::Key key) const
    {
        QTest::keyClick(quick, key);
    }

    void Click(QPoint position) const
    {
        QTest::mouseClick(quick, Qt::LeftButton, {}, position);
    }

    GuiApplication application;
    std::shared_ptr<FakeCertDataGetter> getter = std::make_shared<FakeCertDataGetter>();
    std::shared_ptr<FakeVerdictSetter> setter = std::make_shared<FakeVerdictSetter>();
    std::shared_ptr<FakeWindowResizer> resizer = std::make_shared<FakeWindowResizer>();
    std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> paletteId =
        vdi::uikit::utils::style::CreatePaletteIdInteractor();
    std::shared_ptr<windows::components::IWindow> window;
    std::unique_ptr<vdi::common_utils_ui::translate::ITranslationInstaller> translations =
        vdi::common_utils_ui::translate::CreateTranslationInstaller();
    QQmlApplicationEngine engine;
    QQuickWindow* quick = nullptr;

private:
    static void Collect(QQuickItem* item, const char* type, QList<QQuickItem*>& found)
    {
        const QString className = QLatin1String(item->metaObject()->className());
        if (item->inherits(type) || className.startsWith(QLatin1String(type) + QLatin1Char('_')))
        {
            found.append(item);
        }
        for (auto* child : item->childItems())
        {
            Collect(child, type, found);
        }
    }
};

}  // namespace cert_approver::test
