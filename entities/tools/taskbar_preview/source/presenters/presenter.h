#pragma once

namespace taskbar_preview {

/// What the presenters have in common: the view that they serve. All of them work on the UI thread.
template <class IPresenter, class IView>
class Presenter : public IPresenter
{
public:
    void SetView(IView* view) override
    {
        m_view = view;
    }

protected:
    /// @returns null while there is no view
    [[nodiscard]] IView* View() const
    {
        return m_view;
    }

private:
    IView* m_view = nullptr;
};

}  // namespace taskbar_preview
