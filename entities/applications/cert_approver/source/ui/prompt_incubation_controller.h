#pragma once

#include <QObject>
#include <QQmlIncubationController>

namespace cert_approver::ui {

/// Builds what asynchronous loaders wait for as soon as the event loop turns.
///
/// The controller that a window brings along waits for a third of a frame first, since it expects
/// animations that must not stutter. Behind a dialog that somebody waits for nothing moves: begun
/// at once, the dialog is complete before the compositor has asked for the window's first picture,
/// and no empty one is drawn before. For the Qt thread only.
class PromptIncubationController final : public QObject, public QQmlIncubationController
{
public:
    using QObject::QObject;

private:
    void incubatingObjectCountChanged(int count) override;
    void customEvent(QEvent* event) override;
    void Schedule(int priority);

    bool m_scheduled = false;
};

}  // namespace cert_approver::ui
