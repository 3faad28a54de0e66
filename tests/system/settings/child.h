#pragma once

#include <functional>
#include <new>
#include <stdexcept>

#include <sys/mman.h>
#include <sys/types.h>

#include <support/process.h>

/// A copy of the test's process that does something of its own; it dies with the object. The test
/// itself never uses the client, so it has no threads that a copy would lack.
class Child final
{
public:
    /// @param body  its expectations count: one that fails makes the child fail
    explicit Child(const std::function<void()>& body);
    ~Child();

    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    [[nodiscard]] pid_t Id() const;

    /// Waits for the end. @returns false after a failed expectation or a signal
    [[nodiscard]] bool Succeeds();

private:
    pid_t m_id;
};

/// Makes something that a test has in common with its children, for the life of the test program.
/// @tparam T  a type that knows no addresses
template <class T>
T& MakeShared()
{
    constexpr int Access = PROT_READ | PROT_WRITE;
    void* place = ::mmap(nullptr, sizeof(T), Access, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return place != MAP_FAILED ? *new (place) T() : throw std::bad_alloc();
}

/// Waits until others have brought it about. @throws std::runtime_error when the time is up
template <class Condition>
void WaitUntil(const char* what, Condition holds)
{
    if (!support::Comes(holds))
    {
        throw std::runtime_error(std::string("It does not come about that ") + what);
    }
}
