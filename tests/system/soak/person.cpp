#include "person.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace soak {

namespace {

/// Between a picture and the key, a tenth of what the quickest person needs. Qt 6.4 aborts when a
/// window goes while the end of its last frame is on the way, and comes back at once: a thread of
/// its own then destroys that frame's callback a second time.
constexpr std::chrono::milliseconds Reaction{15};

}  // namespace

Person::Person(support::TerminalSession& terminal) : m_terminal(terminal) {}

void Person::Learn(std::uint32_t digit)
{
    WaitFor([&](const QImage& screen) { return m_reader.Learn(digit, screen); });
}

std::uint32_t Person::WaitForNumber()
{
    std::optional<std::uint32_t> number;
    const auto isNew = [&](const QImage& screen)
    {
        number = m_reader.Read(screen);
        return number && number != m_answered;
    };
    WaitFor(isNew);
    return *number;
}

void Person::Press(std::uint32_t number, const std::vector<std::uint32_t>& keys)
{
    m_answered = number;
    for (const std::uint32_t key : keys)
    {
        std::this_thread::sleep_for(Reaction);
        m_terminal.Display().PressKey(key);
    }
}

void Person::WaitFor(const std::function<bool(const QImage&)>& accepts)
{
    if (!m_terminal.Display().WaitForScreen(accepts))
    {
        m_terminal.Display().Screen().save("unexpected.png");
        throw std::runtime_error("No dialog, see unexpected.png; the terminal wrote:\n" +
                                 m_terminal.Manager().Log());
    }
}

}  // namespace soak
