#include <memory>
#include <thread>

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <component/plk/result_codes.h>
#include <shared/common_utils_ui/qt_ui_task_executor.h>

#include "gui_application.h"

namespace common::utils {
namespace {

class QtUiTaskExecutorTest : public ::testing::Test
{
protected:
    QtUiTaskExecutor m_executor;
    std::unique_ptr<GuiApplication> m_application = std::make_unique<GuiApplication>();
    std::shared_ptr<std::thread::id> m_ranOn = std::make_shared<std::thread::id>();
    std::unique_ptr<ITask> m_task =
        std::make_unique<GenericTask>([ranOn = m_ranOn] { *ranOn = std::this_thread::get_id(); });
};

TEST_F(QtUiTaskExecutorTest, RefusesAnEmptyTask)
{
    EXPECT_EQ(m_executor.PostTask(nullptr), plk::codes::InvalidArgument);
}

TEST_F(QtUiTaskExecutorTest, RunsATaskOfTheUiThreadAtOnceAndLeavesItToTheCaller)
{
    EXPECT_EQ(m_executor.PostTask(std::move(m_task)), 0);
    EXPECT_EQ(*m_ranOn, std::this_thread::get_id());
    EXPECT_NE(m_task, nullptr);
}

TEST_F(QtUiTaskExecutorTest, QueuesATaskOfAnotherThreadAndTakesIt)
{
    std::thread([this] { EXPECT_EQ(m_executor.PostTask(std::move(m_task)), 0); }).join();
    EXPECT_EQ(m_task, nullptr);
    EXPECT_EQ(*m_ranOn, std::thread::id{});
    QCoreApplication::processEvents();
    EXPECT_EQ(*m_ranOn, std::this_thread::get_id());
    EXPECT_EQ(m_ranOn.use_count(), 1);
}

TEST_F(QtUiTaskExecutorTest, ATaskWhoseTurnNeverComesGoesWithTheApplication)
{
    std::thread([this] { m_executor.PostTask(std::move(m_task)); }).join();
    m_application.reset();
    EXPECT_EQ(m_ranOn.use_count(), 1);
    EXPECT_EQ(*m_ranOn, std::thread::id{});
}

}  // namespace
}  // namespace common::utils
