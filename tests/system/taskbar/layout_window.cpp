#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>

#include <shared/common_utils_ui/ui/taskbar/language_control/create_keyboard_layout_controller.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/i_language_indicator_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/language_indicator_view.h>

namespace language_control = common_utils_ui::taskbar::ui::controls::language_control;

namespace {

/// Stands between the compositor and the view, and writes down what the compositor tells, with a
/// number.
class Presenter final : public language_control::ILanguageIndicatorPresenter
{
public:
    Presenter()
    {
        m_controller->RegisterLayoutChangedCallback([this](std::string_view layout)
                                                    { OnLayout(std::string(layout)); });
    }

    void SetView(language_control::ILanguageIndicatorView* view) override
    {
        m_view = view;
        if (m_view != nullptr)
        {
            m_view->OnLocalesChanged({"en-US", "ru-RU"});
        }
    }

    void ChangeLocale(std::string /*locale*/) override
    {
        m_controller->RequestLayoutChange();
    }

    void OnShow() override {}

private:
    void OnLayout(const std::string& layout)
    {
        qInfo("told %d: %s.", ++m_told, layout.c_str());
        m_view->OnLocaleChanged(layout == "ru" ? "ru-RU" : "en-US");
    }

    std::unique_ptr<language_control::IKeyboardLayoutController> m_controller =
        language_control::CreateKeyboardLayoutController();
    language_control::ILanguageIndicatorView* m_view = nullptr;
    int m_told = 0;
};

}  // namespace

/// A taskbar with nothing but the layout control, until its window is closed.
int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    {
        QQmlApplicationEngine engine;
        // A child of the engine, so that it outlives the window.
        new language_control::LanguageIndicatorView(
            std::make_shared<Presenter>(), engine.rootContext(), &engine);
        engine.load(QUrl(QStringLiteral("qrc:/layout_window.qml")));
        QGuiApplication::exec();
    }
    qInfo("gone");
    return 0;
}
