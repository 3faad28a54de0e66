#include "ui/prompt_incubation_controller.h"

#include <QCoreApplication>
#include <QEvent>

namespace cert_approver::ui {

void PromptIncubationController::incubatingObjectCountChanged(int count)
{
    if (count > 0)
    {
        // Before what the compositor has to say to a window that comes up in this very moment.
        Schedule(Qt::HighEventPriority);
    }
}

void PromptIncubationController::customEvent(QEvent* /*event*/)
{
    // Several times what the dialog takes. Something larger lets others have their turn.
    constexpr int SliceMs = 50;
    m_scheduled = false;
    incubateFor(SliceMs);
    if (incubatingObjectCount() > 0)
    {
        Schedule(Qt::NormalEventPriority);
    }
}

void PromptIncubationController::Schedule(int priority)
{
    if (!m_scheduled)
    {
        m_scheduled = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), priority);
    }
}

}  // namespace cert_approver::ui
