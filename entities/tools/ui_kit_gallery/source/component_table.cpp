#include "component_table.h"

#include <memory>
#include <stdexcept>

#include <QColor>
#include <QDate>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPointF>
#include <QQmlComponent>
#include <QUrl>

namespace ui_kit_gallery {
namespace {

/// The nearest class behind the documents that the component is made of.
const QMetaObject& Base(const QObject& object)
{
    const auto* type = object.metaObject();
    while (QByteArray(type->className()).contains("_QML"))
        type = type->superClass();
    return *type;
}

/// A type as QML calls it.
QString TypeName(const QMetaType type)
{
    static const QHash<QByteArray, QString> names{{"QString", "string"},
                                                  {"QColor", "color"},
                                                  {"QUrl", "url"},
                                                  {"QVariant", "var"},
                                                  {"QJSValue", "var"},
                                                  {"QDateTime", "date"},
                                                  {"QFont", "font"},
                                                  {"QPointF", "point"},
                                                  {"double", "real"}};
    const QByteArray name(type.name());
    auto text = names.value(name, QString::fromLatin1(name));
    text.remove(QLatin1Char('*')).remove(QStringLiteral("QQuick"));
    text.remove(QStringLiteral("QQml"));
    return text.section(QStringLiteral("_QML"), 0, 0).section(QStringLiteral("::"), -1);
}

QString DateText(const QDateTime& value)
{
    if (!value.isValid())
        return QStringLiteral("none");
    return value.date() == QDate::currentDate() ? QStringLiteral("today")
                                                : value.date().toString(Qt::ISODate);
}

QString ValueText(const QMetaProperty& property, const QVariant& value)
{
    if (property.isEnumType())
        return QString::fromLatin1(property.enumerator().valueToKey(value.toInt()));
    if (value.metaType().flags().testFlag(QMetaType::PointerToQObject))
        return value.value<QObject*>() == nullptr ? QStringLiteral("null") : QString();
    switch (value.typeId())
    {
        case QMetaType::UnknownType:
            return QStringLiteral("undefined");
        case QMetaType::Nullptr:
            return QStringLiteral("null");
        case QMetaType::QString:
        case QMetaType::QUrl:
            return '"' + value.toString() + '"';
        case QMetaType::QColor: {
            const auto color = value.value<QColor>();
            return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb).toUpper();
        }
        case QMetaType::QDateTime:
            return DateText(value.toDateTime());
        case QMetaType::QFont:
            return QString();
        default:
            return value.toString();
    }
}

QString Parameters(const QMetaMethod& method)
{
    QStringList parameters;
    for (int index = 0; index < method.parameterCount(); ++index)
    {
        parameters.push_back(TypeName(method.parameterMetaType(index)) + ' ' +
                             QString::fromLatin1(method.parameterNames().at(index)));
    }
    return QString::fromLatin1(method.name()) + '(' + parameters.join(QStringLiteral(", ")) + ')';
}

QString PropertyRows(const QObject& object, const QStringList& unlisted, QStringList& notifiers)
{
    const auto* type = object.metaObject();
    QString rows;
    for (int index = Base(object).propertyCount(); index < type->propertyCount(); ++index)
    {
        const auto property = type->property(index);
        const auto name = QString::fromLatin1(property.name());
        notifiers.push_back(QString::fromLatin1(property.notifySignal().name()));
        if (unlisted.contains(name))
            continue;
        const auto value = property.read(&object);
        const auto text = ValueText(property, value);
        rows += QStringLiteral("| `%1` | %2%3 | %4 |\n")
                    .arg(name,
                         TypeName(property.metaType()),
                         property.isWritable() ? QString() : QStringLiteral(", read-only"),
                         text.isEmpty() ? QString() : '`' + text + '`');
    }
    return rows;
}

}  // namespace

QString ComponentTable(QQmlEngine& engine, const QString& component, const QStringList& unlisted)
{
    QQmlComponent document(&engine, QUrl("qrc:/ui_kit/qml/base/" + component + ".qml"));
    const std::unique_ptr<QObject> object(document.create());
    if (object == nullptr)
        throw std::runtime_error(document.errorString().toStdString());

    QString text;
    const auto width = object->property("implicitWidth").toInt();
    const auto height = object->property("implicitHeight").toInt();
    if (width > 0 && height > 0)
        text += QStringLiteral("%1 by %2 by itself.\n\n").arg(width).arg(height);
    QStringList notifiers;
    const auto rows = PropertyRows(*object, unlisted, notifiers);
    if (!rows.isEmpty())
        text += "| Property | Type | Default |\n|---|---|---|\n" + rows + '\n';

    QStringList signalTexts;
    QStringList functionTexts;
    const auto* type = object->metaObject();
    for (int index = Base(*object).methodCount(); index < type->methodCount(); ++index)
    {
        const auto method = type->method(index);
        const auto name = QString::fromLatin1(method.name());
        if (method.methodType() == QMetaMethod::Signal && !notifiers.contains(name))
            signalTexts.push_back('`' + Parameters(method) + '`');
        else if (method.methodType() != QMetaMethod::Signal && !unlisted.contains(name))
            functionTexts.push_back('`' + Parameters(method) + '`');
    }
    if (!signalTexts.empty())
        text += "Signals: " + signalTexts.join(QStringLiteral(", ")) + "\n\n";
    if (!functionTexts.empty())
        text += "Functions: " + functionTexts.join(QStringLiteral(", ")) + "\n\n";
    return text;
}

}  // namespace ui_kit_gallery
