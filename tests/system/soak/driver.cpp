#include "driver.h"

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <linux/input-event-codes.h>

namespace soak {

namespace {

constexpr std::size_t CallersAtATime = 8;
constexpr std::uint32_t Digits = 10;
/// Between a picture and the key, a tenth of what the quickest person needs. Qt 6.4 aborts when a
/// window goes while the end of its last frame is on the way, and comes back at once: a thread of
/// its own then destroys that frame's callback a second time.
constexpr std::chrono::milliseconds Reaction{15};

struct Answer
{
    std::vector<std::uint32_t> keys;
    Event meant;
};

const std::vector<Answer> Answers = {
    {{KEY_ENTER}, Event::Approved},
    {{KEY_ESC}, Event::Closed},
    {{KEY_TAB, KEY_ENTER}, Event::Closed},
    {{KEY_TAB, KEY_TAB, KEY_ENTER}, Event::Approved},
};

}  // namespace

void Driver::TakeReportsUntil(const std::function<bool()>& holds)
{
    const auto takeAndLook = [&]
    {
        m_callers.TakeReports();
        return holds();
    };
    if (!support::Comes(takeAndLook))
    {
        throw std::runtime_error("The callers do not end");
    }
}

Driver::Driver(std::uint32_t seed) : m_random(seed)
{
    for (std::uint32_t digit = 0; digit < Digits; ++digit)
    {
        m_callers.Start(NumberOfDigit(digit));
        WaitFor([&](const QImage& screen) { return m_reader.Learn(digit, screen); });
        PressFor(NumberOfDigit(digit));
        AnswerAll();
    }
}

void Driver::Answer(int dialogs)
{
    for (; dialogs > 0; --dialogs)
    {
        // Takes in what has been written, lest anybody wait for room in the pipe.
        static_cast<void>(m_terminal.Manager().Program().Runs());
        FillUp();
        AnswerNext();
    }
}

void Driver::Drain()
{
    AnswerAll();
    // Somebody killed in the moment before may still get a dialog; the service asks in the order of
    // arrival, so nobody does any more when one last caller has been answered.
    m_callers.Start(++m_lastStarted);
    AnswerAll();
    if (!m_terminal.Display().WaitForNoToplevel())
    {
        throw std::runtime_error("A dialog is left when all have been answered");
    }
}

void Driver::KillApplication()
{
    FillUp();
    WaitForNumber();
    TakeReportsUntil([this] { return m_callers.AreAllConnected(); });
    m_callers.EndApplication();
    const pid_t former = m_terminal.Approver();
    kill(former, HappensOnceIn(2) ? SIGTERM : SIGKILL);
    TakeReportsUntil([this] { return m_callers.Alive().empty(); });
    if (HappensOnceIn(2))
    {
        FillUp();
    }
    m_terminal.WaitForNextApprover(former);
}

support::TerminalSession& Driver::Terminal()
{
    return m_terminal;
}

const Callers::Counts& Driver::Sum() const
{
    return m_callers.Sum();
}

int Driver::Answered() const
{
    return m_answered;
}

bool Driver::HappensOnceIn(int times)
{
    return std::uniform_int_distribution(1, times)(m_random) == 1;
}

void Driver::FillUp()
{
    // With all pressed for or killed, and none of them gone yet, nobody is left to wait for.
    TakeReportsUntil(
        [this] { return m_callers.Alive().size() < CallersAtATime || m_callers.IsAnyWaiting(); });
    for (std::size_t count = m_callers.Alive().size(); count < CallersAtATime; ++count)
    {
        m_callers.Start(++m_lastStarted);
    }
}

void Driver::AnswerNext()
{
    const std::uint32_t shown = WaitForNumber();
    for (const auto& [times, number] : {std::pair(16, AnyAlive()), std::pair(24, shown)})
    {
        if (HappensOnceIn(times))
        {
            m_callers.Kill(number);
            TakeReportsUntil([this, number = number] { return !m_callers.IsAlive(number); });
        }
    }
    PressFor(shown);
    if (HappensOnceIn(16))
    {
        m_callers.Kill(AnyAlive());
    }
}

void Driver::AnswerAll()
{
    for (; m_callers.IsAnyWaiting(); m_callers.TakeReports())
    {
        PressFor(WaitForNumber());
    }
    TakeReportsUntil([this] { return m_callers.Alive().empty(); });
}

void Driver::PressFor(std::uint32_t number)
{
    const auto& answer = Answers[m_random() % Answers.size()];
    m_callers.Press(number, answer.meant);
    ++m_answered;
    m_lastAnswered = number;
    for (const std::uint32_t key : answer.keys)
    {
        std::this_thread::sleep_for(Reaction);
        m_terminal.Display().PressKey(key);
    }
}

std::uint32_t Driver::WaitForNumber()
{
    std::optional<std::uint32_t> number;
    const auto isNew = [&](const QImage& screen)
    {
        number = m_reader.Read(screen);
        return number && number != m_lastAnswered;
    };
    WaitFor(isNew);
    return *number;
}

void Driver::WaitFor(const std::function<bool(const QImage&)>& accepts)
{
    if (!m_terminal.Display().WaitForScreen(accepts))
    {
        m_terminal.Display().Screen().save("unexpected.png");
        throw std::runtime_error("No dialog, see unexpected.png; the terminal wrote:\n" +
                                 m_terminal.Manager().Log());
    }
}

std::uint32_t Driver::AnyAlive()
{
    const auto alive = m_callers.Alive();
    const std::size_t chosen = m_random() % (alive.size() + 1);
    return chosen < alive.size() ? alive[chosen] : 0;
}

}  // namespace soak
