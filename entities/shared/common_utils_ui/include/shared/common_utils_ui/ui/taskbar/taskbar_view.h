#pragma once

#include <memory>
#include <utility>

#include <QObject>

#include <component/plk/exceptions.h>
#include <shared/common/utils/callable.h>
#include <shared/common_utils_ui/qt_callable_guard.h>
#include <shared/common_utils_ui/ui/taskbar/i_taskbar_view_item.h>
#include <shared/common_utils_ui/ui/taskbar/publish_view.h>

namespace common_utils_ui::taskbar::ui {

/// Whether a control has its place in the row from the start.
enum class Initially
{
    Visible,
    Invisible,
};

/// What all controls of the taskbar have in common: a presenter, two flags that QML reads, a guard,
/// and the steps of becoming known to QML and to the presenter. A view derives from it with itself
/// as `View`, brings the signals `VisibleChanged` and `EnabledChanged`, with the new value or
/// without, and takes the steps in its constructor and destructor, since the presenter gets to
/// know a complete view only.
///
/// A view belongs to the UI thread. Presenters reach it from other threads through `QtInvoker`.
/// @tparam IView             the view as its presenter sees it; derives from ICallable
/// @tparam PresenterPointer  shared or unique, as the view holds its presenter
template <class View, class IView, class PresenterPointer>
class TaskbarView : public QObject, public IView, public ITaskbarViewItem
{
public:
    using ViewInterface = IView;
    using Presenter = typename PresenterPointer::element_type;

    [[nodiscard]] std::unique_ptr<::common::utils::ICallableGuard> GetGuardView() const override
    {
        return std::make_unique<vdi::common_utils_ui::QtCallableGuard>(this);
    }

    void SetVisible(bool visible) override
    {
        if (Change(m_visible, visible))
        {
            Notify(&View::VisibleChanged, visible);
        }
    }

    void SetEnabled(bool enabled) override
    {
        if (Change(m_enabled, enabled))
        {
            Notify(&View::EnabledChanged, enabled);
        }
    }

    [[nodiscard]] bool IsVisible() const
    {
        return m_visible;
    }

    [[nodiscard]] bool IsEnabled() const
    {
        return m_enabled;
    }

    /// Most controls have no hot key.
    void Activate() override {}
    void Deactivate() override {}

protected:
    TaskbarView(PresenterPointer presenter,
                QObject* parent,
                Initially initially = Initially::Visible)
        : QObject(parent),
          m_presenter(std::move(presenter)),
          m_visible(initially == Initially::Visible)
    {}

    /// @param file, line  the place in the view that the exception names
    /// @throws zin::CheckFailedException  there is no presenter, with the text given, or no context
    void CheckCollaborators(const QQmlContext* context,
                            const char* withoutPresenter,
                            const char* file,
                            int line) const
    {
        Check(m_presenter != nullptr, withoutPresenter, file, line);
        Check(context != nullptr, "Qml context is not initialized!", file, line);
    }

    /// Makes the view known to QML.
    void Publish(QQmlContext& context, const char* property)
    {
        PublishView(context, property, *this);
    }

    /// @returns whether the value is another one than before
    template <class T>
    static bool Change(T& field, const T& value)
    {
        return std::exchange(field, value) != value;
    }

    PresenterPointer m_presenter;

private:
    static void Check(bool condition, const char* text, const char* file, int line)
    {
        if (!condition)
        {
            throw zin::CheckFailedException(file, line) << text;
        }
    }

    void Notify(void (View::*signal)(), bool)
    {
        (static_cast<View*>(this)->*signal)();
    }

    void Notify(void (View::*signal)(bool), bool value)
    {
        (static_cast<View*>(this)->*signal)(value);
    }

    bool m_visible;
    bool m_enabled = true;
};

}  // namespace common_utils_ui::taskbar::ui
