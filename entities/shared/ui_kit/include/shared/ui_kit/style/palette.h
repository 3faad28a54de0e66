#pragma once

#include <QColor>
#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

#include <shared/ui_kit/style/gradient.h>
#include <shared/ui_kit/style/palette_id.h>

namespace vdi::uikit::utils::style {

/// One colour for each role that a control can give to a part of itself. A role without a colour is
/// an invalid QColor, and the controls bring a colour of their own for it. Palettes are constant;
/// gradients stay owned by their palette.
class IPalette : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QColor backgroundPrimary READ BackgroundPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor backgroundSubPrimary READ BackgroundSubPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor backgroundSecondary READ BackgroundSecondary NOTIFY ColorChanged)
    Q_PROPERTY(QColor backgroundBase READ BackgroundBase NOTIFY ColorChanged)
    Q_PROPERTY(QColor contentConstant READ ContentConstant NOTIFY ColorChanged)
    Q_PROPERTY(QColor contentPrimary READ ContentPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor contentSubPrimary READ ContentSubPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor contentSecondary READ ContentSecondary NOTIFY ColorChanged)
    Q_PROPERTY(QColor contentDisabled READ ContentDisabled NOTIFY ColorChanged)
    Q_PROPERTY(QColor contentBorder READ ContentBorder NOTIFY ColorChanged)
    Q_PROPERTY(QColor contentBackground READ ContentBackground NOTIFY ColorChanged)
    Q_PROPERTY(QColor persistentAccentPrimary READ PersistentAccentPrimary NOTIFY ColorChanged)
    Q_PROPERTY(
        QColor persistentAccentSubPrimary READ PersistentAccentSubPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor persistentAccentSecondary READ PersistentAccentSecondary NOTIFY ColorChanged)
    Q_PROPERTY(QColor persistentAccentDisabled READ PersistentAccentDisabled NOTIFY ColorChanged)
    Q_PROPERTY(QColor persistentAccentBorder READ PersistentAccentBorder NOTIFY ColorChanged)
    Q_PROPERTY(
        QColor persistentAccentBackground READ PersistentAccentBackground NOTIFY ColorChanged)
    Q_PROPERTY(QColor systemErrorPrimary READ SystemErrorPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor systemSuccessPrimary READ SystemSuccessPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor systemWarningPrimary READ SystemWarningPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor systemErrorSecondary READ SystemErrorSecondary NOTIFY ColorChanged)
    Q_PROPERTY(QColor systemSuccessSecondary READ SystemSuccessSecondary NOTIFY ColorChanged)
    Q_PROPERTY(QColor systemWarningSecondary READ SystemWarningSecondary NOTIFY ColorChanged)
    Q_PROPERTY(QColor bluePrimary READ BluePrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor blueSubPrimary READ BlueSubPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor blueSecondary READ BlueSecondary NOTIFY ColorChanged)
    Q_PROPERTY(QColor blueDisabled READ BlueDisabled NOTIFY ColorChanged)
    Q_PROPERTY(QColor blueBorder READ BlueBorder NOTIFY ColorChanged)
    Q_PROPERTY(QColor blueBackground READ BlueBackground NOTIFY ColorChanged)
    Q_PROPERTY(Gradient* greenPrimary READ GreenPrimary NOTIFY ColorChanged)
    Q_PROPERTY(Gradient* greenSubPrimary READ GreenSubPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor greenSecondary READ GreenSecondary NOTIFY ColorChanged)
    Q_PROPERTY(Gradient* greenDisabled READ GreenDisabled NOTIFY ColorChanged)
    Q_PROPERTY(QColor greenBorder READ GreenBorder NOTIFY ColorChanged)
    Q_PROPERTY(QColor greenBackground READ GreenBackground NOTIFY ColorChanged)
    Q_PROPERTY(QColor purplePrimary READ PurplePrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor purpleSubPrimary READ PurpleSubPrimary NOTIFY ColorChanged)
    Q_PROPERTY(QColor purpleSecondary READ PurpleSecondary NOTIFY ColorChanged)
    Q_PROPERTY(QColor purpleDisabled READ PurpleDisabled NOTIFY ColorChanged)
    Q_PROPERTY(QColor purpleBorder READ PurpleBorder NOTIFY ColorChanged)
    Q_PROPERTY(QColor purpleBackground READ PurpleBackground NOTIFY ColorChanged)

public:
    [[nodiscard]] virtual PaletteId Id() const = 0;

    [[nodiscard]] virtual QColor BackgroundPrimary() const = 0;
    [[nodiscard]] virtual QColor BackgroundSubPrimary() const = 0;
    [[nodiscard]] virtual QColor BackgroundSecondary() const = 0;
    [[nodiscard]] virtual QColor BackgroundBase() const = 0;

    [[nodiscard]] virtual QColor ContentConstant() const = 0;
    [[nodiscard]] virtual QColor ContentPrimary() const = 0;
    [[nodiscard]] virtual QColor ContentSubPrimary() const = 0;
    [[nodiscard]] virtual QColor ContentSecondary() const = 0;
    [[nodiscard]] virtual QColor ContentDisabled() const = 0;
    [[nodiscard]] virtual QColor ContentBorder() const = 0;
    [[nodiscard]] virtual QColor ContentBackground() const = 0;

    [[nodiscard]] virtual QColor PersistentAccentPrimary() const;
    [[nodiscard]] virtual QColor PersistentAccentSubPrimary() const;
    [[nodiscard]] virtual QColor PersistentAccentSecondary() const;
    [[nodiscard]] virtual QColor PersistentAccentDisabled() const;
    [[nodiscard]] virtual QColor PersistentAccentBorder() const;
    [[nodiscard]] virtual QColor PersistentAccentBackground() const;

    [[nodiscard]] virtual QColor SystemErrorPrimary() const = 0;
    [[nodiscard]] virtual QColor SystemSuccessPrimary() const = 0;
    [[nodiscard]] virtual QColor SystemWarningPrimary() const = 0;
    [[nodiscard]] virtual QColor SystemErrorSecondary() const = 0;
    [[nodiscard]] virtual QColor SystemSuccessSecondary() const = 0;
    [[nodiscard]] virtual QColor SystemWarningSecondary() const = 0;

    [[nodiscard]] virtual QColor BluePrimary() const = 0;
    [[nodiscard]] virtual QColor BlueSubPrimary() const = 0;
    [[nodiscard]] virtual QColor BlueSecondary() const = 0;
    [[nodiscard]] virtual QColor BlueDisabled() const = 0;
    [[nodiscard]] virtual QColor BlueBorder() const = 0;
    [[nodiscard]] virtual QColor BlueBackground() const = 0;

    [[nodiscard]] virtual Gradient* GreenPrimary() const = 0;
    [[nodiscard]] virtual Gradient* GreenSubPrimary() const = 0;
    [[nodiscard]] virtual QColor GreenSecondary() const = 0;
    [[nodiscard]] virtual Gradient* GreenDisabled() const = 0;
    [[nodiscard]] virtual QColor GreenBorder() const = 0;
    [[nodiscard]] virtual QColor GreenBackground() const = 0;

    [[nodiscard]] virtual QColor PurplePrimary() const = 0;
    [[nodiscard]] virtual QColor PurpleSubPrimary() const = 0;
    [[nodiscard]] virtual QColor PurpleSecondary() const = 0;
    [[nodiscard]] virtual QColor PurpleDisabled() const = 0;
    [[nodiscard]] virtual QColor PurpleBorder() const = 0;
    [[nodiscard]] virtual QColor PurpleBackground() const = 0;

signals:
    /// The notifier that bindings ask for; nothing emits it.
    void ColorChanged();
};

}  // namespace vdi::uikit::utils::style
