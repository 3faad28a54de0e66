#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <QCoreApplication>
#include <QObject>
#include <gtest/gtest.h>

#include <component/plk/exceptions.h>
#include <shared/common_utils_ui/qt_callable_guard.h>
#include <shared/common_utils_ui/qt_invoker.h>

#include "gui_application.h"

namespace vdi::common_utils_ui {
namespace {

class IView : public ::common::utils::ICallable
{
public:
    virtual void SetText(std::string_view text) = 0;
    virtual void SetCounter(const int& counter) noexcept = 0;
};

using Texts = std::vector<std::string>;

class View final : public QObject, public IView
{
public:
    explicit View(Texts& texts) : m_texts(texts) {}

    std::unique_ptr<::common::utils::ICallableGuard> GetGuardView() const override
    {
        return std::make_unique<QtCallableGuard>(this);
    }

    void SetText(std::string_view text) override
    {
        m_texts.emplace_back(text);
    }

    void SetCounter(const int& counter) noexcept override
    {
        m_texts.push_back(std::to_string(counter));
    }

private:
    Texts& m_texts;
};

class QtInvokerTest : public ::testing::Test
{
protected:
    /// Makes two calls on a thread that has ended when this returns.
    void InvokeFromAnotherThread() const
    {
        const auto work = [invoker = QtInvoker<IView>{m_view.get()}]
        {
            invoker.Invoke(&IView::SetText, std::string(100, 'x'));
            invoker.Invoke(&IView::SetCounter, 7);
        };
        std::thread(work).join();
    }

    const Texts m_bothCalls{std::string(100, 'x'), "7"};
    std::unique_ptr<GuiApplication> m_application = std::make_unique<GuiApplication>();
    Texts m_texts;
    std::unique_ptr<View> m_view = std::make_unique<View>(m_texts);
};

TEST_F(QtInvokerTest, ThrowsWithoutAView)
{
    EXPECT_THROW(QtInvoker<IView>{}.Invoke(&IView::SetCounter, 1), zin::CheckFailedException);
}

TEST_F(QtInvokerTest, CallsAtOnceOnTheUiThread)
{
    QtInvoker<IView>{m_view.get()}.Invoke(&IView::SetCounter, 1);
    EXPECT_EQ(m_texts, Texts{"1"});
}

TEST_F(QtInvokerTest, QueuesCallsOfAnotherThreadInOrder)
{
    InvokeFromAnotherThread();
    EXPECT_TRUE(m_texts.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(m_texts, m_bothCalls);
}

TEST_F(QtInvokerTest, DropsCallsWhoseViewIsGoneByTheirTurn)
{
    InvokeFromAnotherThread();
    m_view.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_texts.empty());
}

TEST_F(QtInvokerTest, CallsOnAnyThreadWithoutAnApplication)
{
    m_application.reset();
    InvokeFromAnotherThread();
    EXPECT_EQ(m_texts, m_bothCalls);
}

}  // namespace
}  // namespace vdi::common_utils_ui
