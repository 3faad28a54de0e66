#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>

#include <component/logger/logger.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/create_keyboard_layout_controller.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/i_language_indicator_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/language_indicator_view.h>

namespace language_control = common_utils_ui::taskbar::ui::controls::language_control;

namespace {

/// Numbers the lines, so that equal ones can be told apart.
class NumberingLog final : public tvo::logger::DefaultLoggerImpl
{
public:
    void Write(tvo::logger::LogLevel level,
               const char* /*file*/,
               int /*line*/,
               const char* /*function*/,
               const std::string& message) override
    {
        qInfo("logged %d, level %d: %s", ++m_lines, static_cast<int>(level), message.c_str());
    }

private:
    int m_lines = 0;
};

/// Stands between the compositor and the view, and writes down what the compositor tells, with a
/// number.
class Presenter final : public language_control::ILanguageIndicatorPresenter
{
public:
    Presenter()
    {
        m_controller->RegisterLayoutChangedCallback([this](std::string_view layout)
                                                    { OnLayout(std::string(layout)); });
        // Both come to nothing: there is a callback already, and the compositor not yet.
        m_controller->RegisterLayoutChangedCallback([](std::string_view /*layout*/) {});
        m_controller->QueryCurrentLayout();
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
    tvo::logger::TVOLogger::Setup(
        "LAYOUT", tvo::logger::LogLevel::Warning, std::make_unique<NumberingLog>());
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
