#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace tvo::bench {

/// One side of a comparison, ready to be measured from its construction on.
class Contender
{
public:
    virtual ~Contender() = default;

    /// Does the measured operation `count` times, one after the other.
    virtual void Run(int count) = 0;

    /// Called after each batch and not measured: leaves things as the next one expects them.
    virtual void Rest() {}
};

using MakeContender = std::function<std::unique_ptr<Contender>()>;

/// Where the processes of a row run. On one processor a round trip is the work of both ends and
/// nothing of the scheduler's choices; what has threads and a screen to serve gets all.
enum class Processors
{
    One,
    All,
};

/// What is measured: ours against its peer, and how many times the peer's time ours may take.
struct Row
{
    std::string name;
    double limit;
    MakeContender ours;
    MakeContender peer;
    /// Pairs of batches. Few for what takes long.
    int pairs = 101;
    Processors processors = Processors::One;
    /// How long a batch takes at least: so long that the clock costs nothing, and so short that a
    /// pair meets one state of the machine. Zero runs the operation once a batch.
    std::chrono::nanoseconds batchTime = std::chrono::milliseconds(5);
};

/// A contender from a callable that does one operation.
template <typename Operation>
class Repeated final : public Contender
{
public:
    template <typename... Arguments>
    explicit Repeated(const Arguments&... arguments) : m_operation(arguments...)
    {}

    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            m_operation();
        }
    }

private:
    Operation m_operation;
};

}  // namespace tvo::bench
