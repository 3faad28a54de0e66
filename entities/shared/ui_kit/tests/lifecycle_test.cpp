#include <QDir>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStandardItemModel>
#include <QTest>
#include <gmock/gmock.h>
#include <malloc.h>

#include <shared/ui_kit/style/palette_provider.h>

namespace vdi::uikit::utils::style {
namespace {

constexpr int Rounds = 1000;
/// Caches are full by then.
constexpr int WarmUp = 200;
constexpr int Switches = 10000;
/// What a round may add to the heap, where no sanitizer looks closer: less than an item. Qt's own
/// lists grow by leaps, foremost those of the images that are asked for in vain.
constexpr auto NegligibleBytes = 400;

/// Parts that can not be without the component that they are made for, and come with it.
const QStringList PartsOfOthers{QStringLiteral("IndicatorLabel"), QStringLiteral("InputCursor")};

std::vector<std::string> Components()
{
    std::vector<std::string> names;
    const QDir base(QStringLiteral(":/ui_kit/qml/base"));
    for (const auto& file : base.entryInfoList(QDir::Files))
    {
        if (!PartsOfOthers.contains(file.baseName()))
            names.push_back(file.baseName().toStdString());
    }
    return names;
}

/// Two rows with all the roles that the lists of the kit read.
class Rows final : public QStandardItemModel
{
public:
    Rows() : QStandardItemModel(2, 1)
    {
        setItemRoleNames({{Qt::UserRole, "name"},
                          {Qt::UserRole + 1, "componentUrlFromModel"},
                          {Qt::UserRole + 2, "windowTitle"},
                          {Qt::UserRole + 3, "windowId"},
                          {Qt::UserRole + 4, "path"},
                          {Qt::UserRole + 5, "menuItemText"}});
    }
};

/// What brings the parts of a component to life that are not always there.
QVariantMap PropertiesOf(const std::string& component, Rows& rows)
{
    const auto model = QVariant::fromValue<QObject*>(&rows);
    const QString text = QStringLiteral("text");
    const std::map<std::string, QVariantMap> properties{
        {"AltTab", {{"appsModel", model}, {"width", 800}, {"height", 260}}},
        {"AppButton", {{"windowsCount", 2}}},
        {"AppButtonTooltip", {{"text", text}}},
        {"AppMenu", {{"logo", QUrl("qrc:/ui_kit/images/logo_big")}}},
        {"AppWindowTooltip", {{"text", text}}},
        {"AppWindows", {{"appWindowsModel", model}}},
        {"CheckBox", {{"tooltipText", text}, {"enabled", false}, {"checked", true}}},
        {"ComboBox", {{"menuModel", QStringList{text}}}},
        {"CommonMenu", {{"menuModel", model}, {"width", 318}, {"height", 400}}},
        {"DnsMultilineText", {{"dnsServerList", QStringList(4, text)}}},
        {"LineEdit", {{"tooltipText", text}, {"errorVisible", true}}},
        {"MoreMenuWindow", {{"model", model}}},
        {"PushButton", {{"hintText", text}}},
        {"SlideButton", {{"hasStateIcon", true}, {"checked", true}}},
        {"TextEdit", {{"tooltipText", text}, {"errorVisible", true}}},
        {"Toast", {{"message", text}, {"isError", true}}}};
    const auto found = properties.find(component);
    return found == properties.end() ? QVariantMap() : found->second;
}

/// Lets what waits for the event loop happen, deletions too.
void Process()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

class Lifecycle : public testing::TestWithParam<std::string>
{
protected:
    Lifecycle()
    {
        m_engine.rootContext()->setContextProperty(QStringLiteral("paletteProvider"),
                                                   m_provider.get());
        m_window.resize(1200, 800);
        m_window.show();
    }

    ~Lifecycle() override
    {
        ForgetImages();
    }

    /// Empties the cache. The software renderer keeps the textures for a frame longer.
    void ForgetImages()
    {
        m_window.releaseResources();
        m_window.grabWindow();
    }

    void Load(QQmlComponent& component, const std::string& name)
    {
        component.loadUrl(QUrl("qrc:/ui_kit/qml/base/" + QString::fromStdString(name) + ".qml"));
    }

    /// Without a controller of incubation the engine makes also what is lazy at once.
    std::unique_ptr<QObject> Make(QQmlComponent& component, const QVariantMap& properties)
    {
        std::unique_ptr<QObject> object(component.beginCreate(m_engine.rootContext()));
        component.setInitialProperties(object.get(), properties);
        if (auto* item = qobject_cast<QQuickItem*>(object.get()))
            item->setParentItem(m_window.contentItem());
        component.completeCreate();
        return object;
    }

    std::size_t UsedBytes()
    {
        m_engine.collectGarbage();
        Process();
        ForgetImages();
        return ::mallinfo2().uordblks;
    }

    std::shared_ptr<IPaletteIdInteractor> m_interactor = []
    {
        auto interactor = CreatePaletteIdInteractor();
        interactor->SetPaletteId(PaletteId::Dark);
        return interactor;
    }();
    std::shared_ptr<PaletteProvider> m_provider =
        CreatePaletteProvider(CreatePaletteFactory(), m_interactor);
    Rows m_rows;
    QQmlEngine m_engine;
    QQuickWindow m_window;
};

INSTANTIATE_TEST_SUITE_P(Kit,
                         Lifecycle,
                         testing::ValuesIn(Components()),
                         [](const auto& component) { return component.param; });

TEST_P(Lifecycle, OfAComponentLeavesNothingBehind)
{
    QQmlComponent component(&m_engine);
    Load(component, GetParam());
    ASSERT_TRUE(component.isReady()) << component.errorString().toStdString();
    const auto properties = PropertiesOf(GetParam(), m_rows);
    std::size_t before = 0;
    for (int round = 0; round < Rounds; ++round)
    {
        if (round == WarmUp)
            before = UsedBytes();
        const auto object = Make(component, properties);
        ASSERT_NE(object, nullptr);
        // Now and then it stays until it has been laid out and drawn.
        if (round % 20 == 0)
            Process();
    }
    // The thread that reads images may still be at those of components that are gone.
    const auto limit = before + (Rounds - WarmUp) * NegligibleBytes;
    EXPECT_TRUE(QTest::qWaitFor([&] { return UsedBytes() < limit; }))
        << UsedBytes() << " bytes, " << before << " before";
}

TEST_F(Lifecycle, OfPalettesIsThatOfAllComponentsTogether)
{
    std::vector<std::unique_ptr<QObject>> objects;
    for (const auto& name : Components())
    {
        QQmlComponent component(&m_engine);
        Load(component, name);
        objects.push_back(Make(component, PropertiesOf(name, m_rows)));
        ASSERT_NE(objects.back(), nullptr);
    }
    int changes = 0;
    QObject::connect(
        m_provider.get(), &PaletteProvider::PaletteChanged, &m_window, [&] { ++changes; });
    for (int count = 0; count < Switches; ++count)
    {
        m_interactor->SetPaletteId(count % 2 == 0 ? PaletteId::Light : PaletteId::Dark);
        if (count % 100 == 0)
            Process();
    }
    EXPECT_EQ(changes, Switches);
}

}  // namespace
}  // namespace vdi::uikit::utils::style

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
