#include "driver.h"

#include <csignal>
#include <stdexcept>

#include <linux/input-event-codes.h>

namespace soak {

namespace {

constexpr std::size_t CallersAtATime = 8;
constexpr std::uint32_t Digits = 10;

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
        TakeReports();
        return holds();
    };
    if (!support::Comes(takeAndLook))
    {
        throw std::runtime_error("The callers do not end");
    }
}

void Driver::TakeReports()
{
    while (const auto report = m_callers.Take())
    {
        m_ledger.Take(*report);
    }
}

Driver::Driver(std::uint32_t seed) : m_random(seed)
{
    for (std::uint32_t digit = 0; digit < Digits; ++digit)
    {
        StartCaller(NumberOfDigit(digit));
        m_person.Learn(digit);
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
    StartCaller(++m_lastStarted);
    AnswerAll();
    if (!m_terminal.Display().WaitForNoToplevel())
    {
        throw std::runtime_error("A dialog is left when all have been answered");
    }
}

void Driver::KillApplication()
{
    FillUp();
    m_person.WaitForNumber();
    TakeReportsUntil([this] { return m_ledger.AreAllConnected(); });
    m_ledger.EndApplication();
    const pid_t former = m_terminal.Approver();
    kill(former, HappensOnceIn(2) ? SIGTERM : SIGKILL);
    TakeReportsUntil([this] { return m_ledger.Alive().empty(); });
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

const Ledger::Counts& Driver::Sum() const
{
    return m_ledger.Sum();
}

int Driver::Answered() const
{
    return m_answered;
}

bool Driver::HappensOnceIn(int times)
{
    return std::uniform_int_distribution(1, times)(m_random) == 1;
}

void Driver::StartCaller(std::uint32_t number)
{
    m_ledger.Start(number);
    m_callers.Start(number);
}

void Driver::FillUp()
{
    // With all pressed for or killed, and none of them gone yet, nobody is left to wait for.
    TakeReportsUntil(
        [this] { return m_ledger.Alive().size() < CallersAtATime || m_ledger.IsAnyWaiting(); });
    for (std::size_t count = m_ledger.Alive().size(); count < CallersAtATime; ++count)
    {
        StartCaller(++m_lastStarted);
    }
}

void Driver::AnswerNext()
{
    const std::uint32_t shown = m_person.WaitForNumber();
    for (const auto& [times, number] : {std::pair(16, AnyAlive()), std::pair(24, shown)})
    {
        if (HappensOnceIn(times))
        {
            Kill(number);
            TakeReportsUntil([this, number = number] { return !m_ledger.IsAlive(number); });
        }
    }
    PressFor(shown);
    if (HappensOnceIn(16))
    {
        Kill(AnyAlive());
    }
}

void Driver::AnswerAll()
{
    for (; m_ledger.IsAnyWaiting(); TakeReports())
    {
        PressFor(m_person.WaitForNumber());
    }
    TakeReportsUntil([this] { return m_ledger.Alive().empty(); });
}

void Driver::PressFor(std::uint32_t number)
{
    const auto& answer = Answers[m_random() % Answers.size()];
    m_ledger.Press(number, answer.meant);
    ++m_answered;
    m_person.Press(number, answer.keys);
}

void Driver::Kill(std::uint32_t number)
{
    if (m_ledger.IsAlive(number))
    {
        m_ledger.Kill(number);
        m_callers.Kill(number);
    }
}

std::uint32_t Driver::AnyAlive()
{
    const auto alive = m_ledger.Alive();
    const std::size_t chosen = m_random() % (alive.size() + 1);
    return chosen < alive.size() ? alive[chosen] : 0;
}

}  // namespace soak
