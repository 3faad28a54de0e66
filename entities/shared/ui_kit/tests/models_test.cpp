#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QMetaEnum>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <shared/ui_kit/models/control_items_model.h>
#include <shared/ui_kit/models/menu_model.h>

namespace {

using rdp_client::ui::ControlItem;
using rdp_client::ui::ControlItemId;
using rdp_client::ui::ControlItemsModel;
using vdi::uikit::models::MenuItem;
using vdi::uikit::models::MenuModel;

std::shared_ptr<MenuItem> Page(const QString& name, std::uint64_t id, QObject* widget = nullptr)
{
    return std::make_shared<MenuItem>(MenuItem{name, id, QUrl{"qrc:/" + name + ".qml"}, widget});
}

std::unique_ptr<ControlItem> Control(ControlItemId id, const QString& name)
{
    return std::make_unique<ControlItem>(ControlItem{id, QUrl{"qrc:/" + name + ".qml"}});
}

TEST(MenuModel, GivesARowByItsRoles)
{
    QObject widget;
    MenuModel model;
    model.AddMenuItem(Page("Network", 0xFFFF'FFFF'FFFF'FFFF, &widget));
    const auto index = model.index(0);
    EXPECT_EQ(model.data(index, 0), "Network");
    EXPECT_EQ(model.data(index, 257), qulonglong{0xFFFF'FFFF'FFFF'FFFF});
    EXPECT_EQ(model.data(index, 258).value<QObject*>(), &widget);
    EXPECT_EQ(model.data(index, 259), QUrl{"qrc:/Network.qml"});
    EXPECT_FALSE(model.data(index, 260).isValid());
    EXPECT_FALSE(model.data(QModelIndex{}, 0).isValid());
    const QHash<int, QByteArray> names{
        {0, "name"}, {257, "id"}, {258, "widgetFromModel"}, {259, "componentUrlFromModel"}};
    EXPECT_EQ(model.roleNames(), names);
    EXPECT_EQ(model.rowCount(index), 1);
}

TEST(MenuModel, FindsTheEarlierOfTwoItemsWithOneId)
{
    MenuModel model;
    EXPECT_EQ(model.AsQAbstractListModel(), &model);
    const auto first = Page("First", 7);
    for (const auto& item : {std::shared_ptr<MenuItem>{}, first, Page("Second", 7)})
        model.AddMenuItem(item);
    EXPECT_EQ(model.ItemCount(), 3);
    EXPECT_EQ(model.GetItemById(7), first);
    EXPECT_EQ(model.GetItemById(8), nullptr);
    EXPECT_FALSE(model.data(model.index(0), Qt::DisplayRole).isValid());
}

TEST(MenuModel, TellsViewsOfEachRowThatIsInserted)
{
    MenuModel model;
    const QAbstractItemModelTester tester{&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    model.AddMenuItem(Page("First", 1));
    EXPECT_TRUE(QMetaObject::invokeMethod(
        &model,
        "AddMenuItem",
        Q_ARG(std::shared_ptr<vdi::uikit::models::MenuItem>, Page("Second", 2))));
    ASSERT_EQ(inserted.size(), 2);
    EXPECT_EQ(inserted[1].mid(1), (QVariantList{1, 1}));
}

TEST(ControlItemsModel, GivesARowByItsRoles)
{
    ControlItemsModel model{nullptr};
    model.AddControl(Control(ControlItemId::Language, "Language"));
    model.AddControl(nullptr);
    const auto index = model.index(0);
    EXPECT_EQ(model.data(index, 257).value<ControlItemId>(), ControlItemId::Language);
    EXPECT_EQ(model.data(index, 258), QUrl{"qrc:/Language.qml"});
    const QHash<int, QByteArray> names{{257, "componentIdFromModel"},
                                       {258, "componentUrlFromModel"}};
    EXPECT_EQ(model.roleNames(), names);
    EXPECT_FALSE(model.data(index, Qt::DisplayRole).isValid());
    EXPECT_FALSE(model.data(QModelIndex{}, 257).isValid());
    EXPECT_FALSE(model.data(model.index(1), 257).isValid());
}

TEST(ControlItemsModel, FindsItemsByIdAndIndex)
{
    ControlItemsModel model{nullptr};
    EXPECT_EQ(model.AsQAbstractListModel(), &model);
    for (const auto* name : {"First", "Second"})
        model.AddControl(Control(ControlItemId::Clock, name));
    EXPECT_EQ(model.ControlsCount(), 2);
    EXPECT_EQ(model.GetControlItemById(ControlItemId::Clock)->componentUrl, QUrl{"qrc:/First.qml"});
    EXPECT_EQ(model.GetControlItemById(ControlItemId::Admin), nullptr);
    EXPECT_EQ(model.GetControlItemByIndex(1)->componentUrl, QUrl{"qrc:/Second.qml"});
    for (const auto index : {-1, 2})
        EXPECT_EQ(model.GetControlItemByIndex(index), nullptr);
}

TEST(ControlItemsModel, ShowsViewsANewRowByTheLayoutAlone)
{
    int count = 0;
    const QCoreApplication application{count, nullptr};
    ControlItemsModel model{nullptr};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy layoutChanged{&model, &QAbstractItemModel::layoutChanged};
    QQmlEngine engine;
    engine.rootContext()->setContextProperty("controls", model.AsQAbstractListModel());
    QQmlComponent component{&engine};
    component.setData(R"(
        import QtQml
        Instantiator {
            model: controls
            delegate: QtObject { required property url componentUrlFromModel }
        })",
                      {});
    const std::unique_ptr<QObject> view{component.create()};
    ASSERT_TRUE(view) << component.errorString().toStdString();
    model.AddControl(Control(ControlItemId::Network, "Network"));
    EXPECT_EQ(inserted.size(), 0);
    EXPECT_EQ(layoutChanged.size(), 1);
    EXPECT_EQ(view->property("count"), 1);
    const auto* row = view->property("object").value<QObject*>();
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->property("componentUrlFromModel"), QUrl{"qrc:/Network.qml"});
}

TEST(ControlItemId, IsKnownByItsNames)
{
    const auto names = QMetaEnum::fromType<ControlItemId>();
    EXPECT_STREQ(names.scope(), "rdp_client::ui");
    const std::vector<std::string> expected{"Network", "Clock", "Language", "Admin"};
    ASSERT_EQ(names.keyCount(), static_cast<int>(expected.size()));
    for (int value = 0; value < names.keyCount(); ++value)
        EXPECT_EQ(names.valueToKey(value), expected[static_cast<std::size_t>(value)]);
}

}  // namespace
