#pragma once

#include <QPointer>

#include <shared/common/utils/callable.h>

class QObject;

namespace vdi::common_utils_ui {

/// Tells whether a QObject is still there, without keeping it. Made while the object certainly
/// lives, on any thread; asked on the thread that destroys the object, where the answer holds until
/// that thread goes on.
class QtCallableGuard final : public ::common::utils::ICallableGuard
{
public:
    explicit QtCallableGuard(const QObject* object);

    [[nodiscard]] bool IsNull() const override;

private:
    QPointer<const QObject> m_object;
};

}  // namespace vdi::common_utils_ui
