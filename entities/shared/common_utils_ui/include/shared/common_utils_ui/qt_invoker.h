#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <tuple>
#include <utility>

#include <QCoreApplication>
#include <QMetaObject>

#include <component/plk/exceptions.h>
#include <shared/common/utils/callable.h>
#include <shared/common_utils_ui/ui_thread.h>

namespace vdi::common_utils_ui {

/// Calls operations of a view on the UI thread, from any thread. A value that points at the view
/// without owning it; an empty one may be assigned over later.
template <class T>
class QtInvoker
{
public:
    QtInvoker() = default;
    explicit QtInvoker(T* object) : m_object(object) {}

    [[nodiscard]] T* Get() const
    {
        return m_object;
    }

    /// Calls `method` of the view with `args`: at once on the UI thread, otherwise queued. A queued
    /// call is dropped in silence if the view is gone by the time its turn comes.
    /// @param args  kept by value until the call, so a std::string may stand for a std::string_view
    ///              parameter; a view or a pointer must outlive the queue by itself
    /// @throws zin::CheckFailedException  there is no view
    /// @note the view must live until Invoke has returned
    template <class Method, class... Args>
    void Invoke(Method&& method, Args&&... args) const
    {
        static_assert(std::derived_from<T, ::common::utils::ICallable>);
        ZIN_CHECK(m_object != nullptr, "Object is nullptr!");
        if (IsOnUiThread())
        {
            std::invoke(method, m_object, std::forward<Args>(args)...);
            return;
        }
        // Queued on the application and not on the view: whether the view still lives is decided
        // when the call runs, on the only thread that destroys views.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [guard = m_object->GetGuardView(),
             method,
             object = m_object,
             stored = std::make_tuple(std::forward<Args>(args)...)]() mutable
            {
                const auto ownGuard = std::move(guard);
                if (ownGuard == nullptr || ownGuard->IsNull())
                    return;
                std::apply([&](auto&... each) { std::invoke(method, object, std::move(each)...); },
                           stored);
            },
            Qt::QueuedConnection);
    }

private:
    T* m_object = nullptr;
};

}  // namespace vdi::common_utils_ui
