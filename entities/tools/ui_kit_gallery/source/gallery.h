#pragma once

#include <chrono>
#include <memory>

#include <QImage>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QUrl>

#include <shared/ui_kit/models/menu_model.h>

#include "palette_choice.h"
#include "poser.h"
#include "search_list.h"

namespace ui_kit_gallery {

/// The program's window with its pages. QML knows this object as `gallery`.
class Gallery final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QAbstractListModel* pages READ Pages CONSTANT)
    Q_PROPERTY(int pageIndex MEMBER m_pageIndex NOTIFY PageChanged)
    Q_PROPERTY(QUrl page READ Page NOTIFY PageChanged)
    Q_PROPERTY(QString pageName READ PageName NOTIFY PageChanged)
    Q_PROPERTY(QAbstractItemModel* countries READ Countries CONSTANT)
    Q_PROPERTY(bool still MEMBER m_isStill CONSTANT)
    Q_PROPERTY(bool bare MEMBER m_isBare CONSTANT)

public:
    /// What a picture is made of.
    enum class Motion
    {
        Live,
        Still,  ///< what moves by itself stands, so that pictures are the same each time
    };

    /// How much is around the samples of a page.
    enum class Frame
    {
        Window,
        Bare,  ///< nothing at all, and the window is as large as they are
    };

    Gallery(Motion motion, Frame frame, const QString& palette);
    ~Gallery() override;

    /// @throws std::runtime_error  the page does not come up
    void Show(const QString& pageName);
    void SetPalette(const QString& name);

    /// Waits until all that comes up in the background has come up, and for that long after it.
    void Settle(std::chrono::milliseconds calm);
    /// The window with the popups that stand around it.
    [[nodiscard]] QImage Picture() const;

    [[nodiscard]] QQmlEngine& Engine();
    [[nodiscard]] QAbstractListModel* Pages();
    [[nodiscard]] QAbstractItemModel* Countries();
    [[nodiscard]] QUrl Page() const;
    [[nodiscard]] QString PageName() const;

    /// What a component is: the words at the head of its document.
    Q_INVOKABLE static QString about(const QString& component);

signals:
    void PageChanged();

private:
    bool m_isStill;
    bool m_isBare;
    int m_pageIndex = 0;
    vdi::uikit::models::MenuModel m_pages;
    SearchList m_countries;
    PaletteChoice m_palette;
    Poser m_poser;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

}  // namespace ui_kit_gallery
