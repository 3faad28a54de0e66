#include "driver.h"

#include <csignal>
#include <stdexcept>
#include <string>

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
        // Also takes in what the application has written, lest it wait for room in its pipe.
        if (!Application().Runs())
        {
            throw std::runtime_error("The application has gone:\n" + Application().Errors());
        }
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

void Driver::RestartApplication()
{
    FillUp();
    m_person.WaitForNumber();
    while (!m_ledger.AreAllConnected())
    {
        TakeReport();
    }
    m_ledger.EndApplication();
    kill(Application().Id(), HappensOnceIn(2) ? SIGTERM : SIGKILL);
    while (!m_ledger.Alive().empty())
    {
        TakeReport();
    }
    static_cast<void>(Application().ExitStatus());
    if (HappensOnceIn(2))
    {
        FillUp();
    }
    m_terminal.StartApprover();
}

support::Process& Driver::Application()
{
    return m_terminal.Approver();
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
    TakeReports();
    // With all pressed for or killed, and none of them gone yet, nobody is left to wait for.
    while (m_ledger.Alive().size() == CallersAtATime && !m_ledger.IsAnyWaiting())
    {
        TakeReport();
    }
    for (std::size_t count = m_ledger.Alive().size(); count < CallersAtATime; ++count)
    {
        StartCaller(++m_lastStarted);
    }
}

void Driver::AnswerNext()
{
    const std::uint32_t shown = m_person.WaitForNumber();
    if (HappensOnceIn(16))
    {
        KillAndWait(AnyAlive());
    }
    if (HappensOnceIn(24))
    {
        KillAndWait(shown);
    }
    PressFor(shown);
    if (HappensOnceIn(16))
    {
        Kill(AnyAlive());
    }
}

void Driver::AnswerAll()
{
    while (!m_ledger.Alive().empty())
    {
        if (m_ledger.IsAnyWaiting())
        {
            PressFor(m_person.WaitForNumber());
            TakeReports();
        }
        else
        {
            TakeReport();
        }
    }
}

void Driver::PressFor(std::uint32_t number)
{
    const auto last = static_cast<int>(Answers.size()) - 1;
    const auto choice = std::uniform_int_distribution(0, last)(m_random);
    const auto& answer = Answers.at(static_cast<std::size_t>(choice));
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

void Driver::KillAndWait(std::uint32_t number)
{
    Kill(number);
    while (m_ledger.IsAlive(number))
    {
        TakeReport();
    }
}

std::uint32_t Driver::AnyAlive()
{
    const auto alive = m_ledger.Alive();
    std::uniform_int_distribution<std::size_t> index(0, alive.size());
    const auto chosen = index(m_random);
    return chosen < alive.size() ? alive[chosen] : 0;
}

void Driver::TakeReport()
{
    const auto report = m_callers.Take(support::Patience);
    if (!report)
    {
        throw std::runtime_error("The callers do not end");
    }
    m_ledger.Take(*report);
}

void Driver::TakeReports()
{
    while (const auto report = m_callers.Take({}))
    {
        m_ledger.Take(*report);
    }
}

}  // namespace soak
