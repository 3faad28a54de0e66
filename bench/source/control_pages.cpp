#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStandardItemModel>

#include <shared/ui_kit/style/palette_provider.h>

#include "kit_rows.h"
#include "runtime_folder.h"
#include "server_line.h"

namespace tvo::bench {
namespace {

namespace style = vdi::uikit::utils::style;

constexpr QSize PageSize{2100, 1680};

/// Rows with the roles that the lists read.
class Rows final : public QStandardItemModel
{
public:
    explicit Rows(int count) : QStandardItemModel(count, 1)
    {
        setItemRoleNames({{Qt::UserRole, "name"},
                          {Qt::UserRole + 1, "componentUrlFromModel"},
                          {Qt::UserRole + 2, "windowTitle"},
                          {Qt::UserRole + 3, "windowId"},
                          {Qt::UserRole + 4, "path"},
                          {Qt::UserRole + 5, "menuItemText"}});
        for (int row = 0; row < count; ++row)
        {
            for (const int textRole : {0, 2, 5})
            {
                setData(index(row, 0),
                        QStringLiteral("Row number %1").arg(row),
                        Qt::UserRole + textRole);
            }
        }
    }
};

/// A window that draws when it is told to, and documents that make what it shows.
class Stage
{
public:
    Stage()
    {
        // A combo box says that it has no tooltip, each time: it is not to be measured.
        m_engine.setOutputWarningsToStandardError(false);
        QObject::connect(&m_engine, &QQmlEngine::warnings, &m_window, PrintUnknown);
        m_engine.setIncubationController(m_window.incubationController());
        QQmlContext* const context = m_engine.rootContext();
        context->setContextProperty(QStringLiteral("paletteProvider"), m_provider.get());
        context->setContextProperty(QStringLiteral("fewRows"), &m_fewRows);
        context->setContextProperty(QStringLiteral("manyRows"), &m_manyRows);
        context->setContextProperty(
            QStringLiteral("longText"),
            QStringLiteral("The certificate is not trusted by this terminal. ").repeated(20));
        m_window.resize(PageSize);
        m_window.show();
        while (!m_window.isExposed())
        {
            QCoreApplication::processEvents();
        }
    }

    /// The components that a document has as its properties.
    std::unique_ptr<QObject> Load(const QString& document)
    {
        QQmlComponent component(&m_engine,
                                QUrl(QStringLiteral("qrc:/bench/controls/%1.qml").arg(document)));
        std::unique_ptr<QObject> object(component.create());
        if (object == nullptr)
        {
            throw std::runtime_error(component.errorString().trimmed().toStdString());
        }
        return object;
    }

    /// Makes one more on the page, which owns it.
    static QQuickItem& Add(QObject& document, const QByteArray& name, QQuickItem& page)
    {
        auto* const component = document.property(name).value<QQmlComponent*>();
        if (component == nullptr)
        {
            throw std::runtime_error("no control '" + name.toStdString() + "'");
        }
        auto* const item =
            qobject_cast<QQuickItem*>(component->beginCreate(component->creationContext()));
        if (item == nullptr)
        {
            throw std::runtime_error(component->errorString().toStdString());
        }
        item->setParent(&page);
        item->setParentItem(&page);
        component->completeCreate();
        return *item;
    }

    std::unique_ptr<QQuickItem> MakePage()
    {
        auto page = std::make_unique<QQuickItem>(m_window.contentItem());
        page->setSize(PageSize);
        return page;
    }

    /// A whole frame before it returns: layout, synchronisation and painting.
    void Draw()
    {
        QEvent event(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&m_window, &event);
    }

    /// What would happen between two pages.
    void Rest()
    {
        m_engine.collectGarbage();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Draw();
    }

    void SwitchPalette()
    {
        const bool isLight = m_interactor->GetPaletteId() == style::PaletteId::Light;
        m_interactor->SetPaletteId(isLight ? style::PaletteId::Dark : style::PaletteId::Light);
    }

    /// A background of another colour has everything on it painted again.
    void SwitchBackground()
    {
        m_window.setColor(m_window.color() == Qt::white ? Qt::black : Qt::white);
    }

private:
    static void PrintUnknown(const QList<QQmlError>& warnings)
    {
        for (const QQmlError& warning : warnings)
        {
            if (!warning.description().contains(QLatin1String("tooltipComponent")))
            {
                std::fprintf(stderr, "%s\n", qPrintable(warning.toString()));
            }
        }
    }

    std::shared_ptr<style::IPaletteIdInteractor> m_interactor = []
    {
        auto interactor = style::CreatePaletteIdInteractor();
        interactor->SetPaletteId(style::PaletteId::Dark);
        return interactor;
    }();
    std::shared_ptr<style::PaletteProvider> m_provider =
        style::CreatePaletteProvider(style::CreatePaletteFactory(), m_interactor);
    Rows m_fewRows{50};
    Rows m_manyRows{1000};
    QQuickWindow m_window;
    QQmlEngine m_engine;
};

/// Makes a page of one kind of control and draws it.
class ShownControls final : public Contender
{
public:
    ShownControls(const std::string& document, const std::string& control)
        : m_document(m_stage.Load(QString::fromStdString(document))),
          m_control(QByteArray::fromStdString(control))
    {}

    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            Show();
        }
    }

    void Rest() override
    {
        m_pages.clear();
        m_stage.Rest();
    }

private:
    static constexpr int Columns = 5;
    static constexpr int Lines = 4;

    void Show()
    {
        QQuickItem& page = *m_pages.emplace_back(m_stage.MakePage());
        for (int i = 0; i < Columns * Lines; ++i)
        {
            const int line = i / Columns;
            Stage::Add(*m_document, m_control, page)
                .setPosition({1. * PageSize.width() / Columns * (i % Columns),
                              1. * PageSize.height() / Lines * line});
        }
        m_stage.Draw();
    }

    Stage m_stage;
    const std::unique_ptr<QObject> m_document;
    const QByteArray m_control;
    std::vector<std::unique_ptr<QQuickItem>> m_pages;
};

/// Paints a page of 200 controls of ten kinds again, in another palette if it is told so.
class RepaintedControls final : public Contender
{
public:
    explicit RepaintedControls(bool switchesPalette) : m_switchesPalette(switchesPalette)
    {
        const QSize cell(PageSize.width() / Columns, PageSize.height() / Lines);
        for (int i = 0; i < Columns * Lines; ++i)
        {
            const int column = i % Columns;
            const int line = i / Columns;
            QQuickItem& item = Stage::Add(*m_document, Kinds[column], *m_page);
            item.setPosition({1. * column * cell.width(), 1. * line * cell.height()});
            item.setSize({std::min(item.width(), cell.width() - 10.),
                          std::min(item.height(), cell.height() - 10.)});
        }
        m_stage.Rest();
    }

    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            if (m_switchesPalette)
            {
                m_stage.SwitchPalette();
            }
            m_stage.SwitchBackground();
            m_stage.Draw();
        }
    }

    void Rest() override
    {
        m_stage.Rest();
    }

private:
    static constexpr const char* Kinds[]{"textLabel",
                                         "textPromt",
                                         "pushButton",
                                         "iconButton",
                                         "checkBox",
                                         "radioButton",
                                         "slideButton",
                                         "lineEdit",
                                         "comboBox",
                                         "scrollingText"};
    static constexpr int Columns = std::size(Kinds);
    static constexpr int Lines = 20;

    const bool m_switchesPalette;
    Stage m_stage;
    // The controls live in its context: without it they would never hear of another palette.
    const std::unique_ptr<QObject> m_document = m_stage.Load(QStringLiteral("KitControls"));
    const std::unique_ptr<QQuickItem> m_page = m_stage.MakePage();
};

std::unique_ptr<Contender> MakeSide(const std::vector<std::string>& arguments)
{
    if (arguments.at(0) == "show")
    {
        return std::make_unique<ShownControls>(arguments.at(1), arguments.at(2));
    }
    return std::make_unique<RepaintedControls>(arguments.at(0) == "switch");
}

}  // namespace

void ServeControls(const std::vector<std::string>& arguments)
{
    ::setenv("FONTCONFIG_FILE", TVO_BENCH_FONTS, 1);
    ::setenv("XDG_CACHE_HOME", RuntimeFolderPath().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", RuntimeFolderPath().c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_QUICK_BACKEND", "software", 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    int argc = 1;
    char name[] = "controls";
    char* argv[]{name, nullptr};
    const QGuiApplication application(argc, argv);
    // That of the kit, for both sides.
    QFont font(QStringLiteral("Vantelore Sans Text"));
    font.setPixelSize(16);
    QGuiApplication::setFont(font);

    const std::unique_ptr<Contender> side = MakeSide(arguments);
    ReportReady();
    for (;;)
    {
        const int count = AwaitOwner();
        if (count > 0)
        {
            side->Run(count);
        }
        else
        {
            side->Rest();
        }
        TellOwner(count);
    }
}

}  // namespace tvo::bench
