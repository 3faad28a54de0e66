#include "gallery.h"

#include <algorithm>
#include <stdexcept>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QMetaEnum>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QStyleHints>
#include <QTimer>

#include "page_list.h"

namespace ui_kit_gallery {
namespace {

using namespace std::chrono_literals;
using vdi::uikit::models::MenuItem;

/// Whether the item is an image or a loader that has not come to an end, or has one within it.
bool IsBusy(const QQuickItem& item)
{
    const auto* type = item.metaObject();
    const auto status = type->property(type->indexOfProperty("status"));
    if (status.isEnumType() &&
        status.read(&item).toInt() == status.enumerator().keyToValue("Loading"))
    {
        return true;
    }
    const auto children = item.childItems();
    return std::any_of(
        children.begin(), children.end(), [](const auto* child) { return IsBusy(*child); });
}

/// The windows that stand on the one: tooltips and menus that may leave it.
QList<QQuickWindow*> PopupsOf(const QQuickWindow& window)
{
    QList<QQuickWindow*> popups;
    for (auto* other : QGuiApplication::topLevelWindows())
    {
        auto* popup = qobject_cast<QQuickWindow*>(other);
        if (popup != nullptr && popup->transientParent() == &window && popup->isVisible())
            popups.push_back(popup);
    }
    return popups;
}

/// The item on nothing. A window's own picture would show what is behind it as black.
QImage ItemPicture(QQuickItem& item)
{
    const auto result = item.grabToImage();
    QEventLoop loop;
    QObject::connect(result.get(), &QQuickItemGrabResult::ready, &loop, &QEventLoop::quit);
    loop.exec();
    return result->image();
}

}  // namespace

Gallery::Gallery(Motion motion, Frame frame, const QString& palette)
    : m_isStill(motion == Motion::Still),
      m_isBare(frame == Frame::Bare),
      m_countries({"Brazil", "Bulgaria", "Chile", "Portugal", "Russia", "Spain"}),
      m_palette(palette)
{
    if (m_isStill)
        QGuiApplication::styleHints()->setCursorFlashTime(0);
    const auto names = PageNames();
    for (qsizetype row = 0; row < names.size(); ++row)
    {
        m_pages.AddMenuItem(std::make_shared<MenuItem>(
            MenuItem{names[row], static_cast<std::uint64_t>(row), PageUrl(names[row]), nullptr}));
    }
    auto* context = m_engine.rootContext();
    context->setContextProperty(QStringLiteral("gallery"), this);
    context->setContextProperty(QStringLiteral("paletteProvider"), &m_palette);
    context->setContextProperty(QStringLiteral("poser"), &m_poser);
    connect(&m_engine, &QQmlEngine::quit, qGuiApp, &QGuiApplication::quit, Qt::QueuedConnection);
}

Gallery::~Gallery()
{
    m_window.reset();
    // A canvas leaves its picture to the event loop, which may have run for the last time.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Gallery::Show(const QString& pageName)
{
    m_window.reset();
    m_pageIndex = static_cast<int>(PageNames().indexOf(pageName));
    emit PageChanged();
    const QString document = m_isBare ? QStringLiteral("BareWindow") : QStringLiteral("Main");
    QQmlComponent component(&m_engine, QUrl("qrc:/ui_kit_gallery/" + document + ".qml"));
    std::unique_ptr<QObject> object(component.create());
    m_window.reset(qobject_cast<QQuickWindow*>(object.get()));
    if (m_window == nullptr)
        throw std::runtime_error(component.errorString().toStdString());
    static_cast<void>(object.release());
    m_window->show();
    m_window->requestActivate();
}

void Gallery::SetPalette(const QString& name)
{
    m_palette.SetName(name);
}

void Gallery::Settle(std::chrono::milliseconds calm)
{
    constexpr auto Pause = 10ms;
    QEventLoop loop;
    QElapsedTimer quiet;
    QTimer watch;
    connect(&watch,
            &QTimer::timeout,
            &loop,
            [&]
            {
                if (IsBusy(*m_window->contentItem()))
                    quiet.restart();
                else if (quiet.hasExpired(calm.count()))
                    loop.quit();
            });
    quiet.start();
    watch.start(Pause);
    loop.exec();
}

QImage Gallery::Picture() const
{
    auto picture = m_window->grabWindow();
    QPainter painter(&picture);
    for (auto* popup : PopupsOf(*m_window))
        painter.drawImage(popup->position() - m_window->position(),
                          ItemPicture(*popup->contentItem()));
    return picture;
}

QQmlEngine& Gallery::Engine()
{
    return m_engine;
}

QAbstractListModel* Gallery::Pages()
{
    return m_pages.AsQAbstractListModel();
}

QAbstractItemModel* Gallery::Countries()
{
    return &m_countries;
}

QUrl Gallery::Page() const
{
    return PageUrl(PageName());
}

QString Gallery::PageName() const
{
    return PageNames().value(m_pageIndex);
}

QString Gallery::about(const QString& component)
{
    QFile document(":/ui_kit/qml/base/" + component + ".qml");
    QStringList words;
    if (document.open(QIODevice::ReadOnly | QIODevice::Text))
    {
        for (const auto& line : QString::fromUtf8(document.readAll()).split('\n'))
        {
            if (line.startsWith("// "))
                words.push_back(line.sliced(3));
            else if (!words.empty())
                break;
        }
    }
    return words.join(' ');
}

}  // namespace ui_kit_gallery
