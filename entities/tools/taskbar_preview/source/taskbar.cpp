#include "taskbar.h"

#include <array>
#include <chrono>
#include <stdexcept>

#include <QEventLoop>
#include <QGuiApplication>
#include <QLocale>
#include <QQmlComponent>
#include <QQmlContext>
#include <QShortcut>
#include <QTimer>

#include <shared/common_utils_ui/ui/taskbar/language_control/create_keyboard_layout_controller.h>

namespace taskbar_preview {
namespace {

using namespace std::chrono_literals;
using common_utils_ui::taskbar::ui::ITaskbarViewItem;
using rdp_client::ui::ControlItem;
using rdp_client::ui::ControlItemId;

std::shared_ptr<vdi::uikit::utils::style::PaletteProvider> CreateDarkPalette()
{
    using namespace vdi::uikit::utils::style;
    const auto identifier = CreatePaletteIdInteractor();
    identifier->SetPaletteId(PaletteId::Dark);
    return CreatePaletteProvider(CreatePaletteFactory(), identifier);
}

std::string ClockLanguage(const Options& options)
{
    return options.language.empty() ? QLocale::system().name().toStdString() : options.language;
}

QUrl Document(const QString& name)
{
    return "qrc:/taskbar_preview/qml/" + name + ".qml";
}

}  // namespace

Taskbar::Taskbar(const Options& options, std::ostream& out)
    : m_palette(CreateDarkPalette()),
      m_row(nullptr),
      m_notificationPresenter(std::make_shared<NotificationPresenter>(out)),
      m_clock(std::make_shared<ClockPresenter>(m_timers, ClockLanguage(options), out),
              m_engine.rootContext(),
              nullptr),
      m_contact(std::make_shared<ContactPresenter>(options.contact),
                m_engine.rootContext(),
                nullptr),
      m_layout(CreateLayoutPresenter(options), m_engine.rootContext(), nullptr),
      m_network(CreateNetworkPresenter(out), m_engine.rootContext(), nullptr),
      m_notifications(m_notificationPresenter, m_engine.rootContext(), nullptr),
      m_power(std::make_shared<PowerPresenter>(options.isUpdateReady, out),
              m_engine.rootContext(),
              nullptr)
{
    m_power.SetTaskbarOnBottomPosition(true);
    FillRow();
    CreateWindow();
}

Taskbar::~Taskbar()
{
    m_window->hide();
}

QQuickWindow& Taskbar::Window()
{
    return *m_window;
}

QImage Taskbar::Picture()
{
    constexpr auto Pause = 300ms;
    QImage last;
    QImage picture = m_window->grabWindow();
    while (picture != last)
    {
        QEventLoop loop;
        QTimer::singleShot(Pause, &loop, &QEventLoop::quit);
        loop.exec();
        last = std::exchange(picture, m_window->grabWindow());
    }
    return picture;
}

std::shared_ptr<LayoutPresenter> Taskbar::CreateLayoutPresenter(const Options& options)
{
    // The short names are read as soon as there is a view.
    if (!m_translator.load(QStringLiteral(":/taskbar_preview/taskbar_preview.qm")))
        throw std::runtime_error("the names of the layouts are missing");
    QCoreApplication::installTranslator(&m_translator);

    std::unique_ptr<language_control::IKeyboardLayoutController> controller;
    if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        controller = language_control::CreateKeyboardLayoutController();
    return std::make_shared<LayoutPresenter>(std::move(controller),
                                             options.layouts,
                                             [this](bool isShown)
                                             { m_layout.SetVisible(isShown); });
}

std::unique_ptr<NetworkPresenter> Taskbar::CreateNetworkPresenter(std::ostream& out)
{
    return std::make_unique<NetworkPresenter>([this] { m_notificationPresenter->Add(); }, out);
}

void Taskbar::FillRow()
{
    const auto add = [this](ControlItemId id, const QString& document)
    {
        m_row.AddControl(std::make_unique<ControlItem>(ControlItem{id, Document(document)}));
    };
    add(ControlItemId::Admin, QStringLiteral("AdminControl"));
    add(ControlItemId::Network, QStringLiteral("NetworkControl"));
    add(ControlItemId::Language, QStringLiteral("LanguageControl"));
    add(ControlItemId::Clock, QStringLiteral("ClockControl"));
}

void Taskbar::CreateWindow()
{
    auto* context = m_engine.rootContext();
    context->setContextProperty(QStringLiteral("paletteProvider"), m_palette.get());
    context->setContextProperty(QStringLiteral("controlItems"), m_row.AsQAbstractListModel());

    QQmlComponent component(&m_engine, Document(QStringLiteral("Main")));
    std::unique_ptr<QObject> object(component.create());
    m_window.reset(qobject_cast<QQuickWindow*>(object.get()));
    if (m_window == nullptr)
        throw std::runtime_error(component.errorString().toStdString());
    static_cast<void>(object.release());

    QObject::connect(m_window.get(),
                     &QWindow::visibleChanged,
                     &m_power,
                     [this](bool isVisible) { OnVisibleChanged(isVisible); });
    QObject::connect(m_window.get(),
                     &QWindow::activeChanged,
                     &m_power,
                     [this]
                     {
                         if (!m_window->isActive())
                             m_power.Deactivate();
                     });
    const auto* hotKey = new QShortcut(Qt::Key_F10, m_window.get());
    QObject::connect(hotKey, &QShortcut::activated, &m_power, [this] { m_power.Activate(); });
    m_window->show();
    m_window->requestActivate();
}

void Taskbar::OnVisibleChanged(bool isVisible)
{
    const std::array<ITaskbarViewItem*, 6> views{
        &m_clock, &m_contact, &m_layout, &m_network, &m_notifications, &m_power};
    for (auto* view : views)
    {
        if (isVisible)
            view->OnShow();
        else
            view->OnHide();
    }
}

}  // namespace taskbar_preview
