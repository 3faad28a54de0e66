#include <cstdlib>
#include <mutex>
#include <optional>
#include <vector>

#include <component/logger/logger.h>
#include <component/logger/tvo_logger.h>

#include "level_from_text.h"

namespace tvo::logger {
namespace {

constexpr const char* LevelVariable = "TVO_LOG_LEVEL";
constexpr const char* TagBeforeSetup = "tvo";

/// Every implementation there ever was. Never destroyed, as the logger itself.
class KeptImplementations
{
public:
    static KeptImplementations& Instance()
    {
        static auto& instance = *new KeptImplementations();
        return instance;
    }

    DefaultLoggerImpl& Keep(std::unique_ptr<DefaultLoggerImpl> implementation)
    {
        const std::lock_guard lock(m_mutex);
        return *m_all.emplace_back(std::move(implementation));
    }

private:
    KeptImplementations()
    {
        std::atexit([] { TVOLogger::RootLogger().Implementation().Flush(); });
    }

    std::mutex m_mutex;
    std::vector<std::unique_ptr<DefaultLoggerImpl>> m_all;
};

std::unique_ptr<DefaultLoggerImpl> MakeConfigured(const char* tag, LogLevel threshold)
{
    const char* const wanted = std::getenv(LevelVariable);
    const std::optional<LogLevel> level = wanted == nullptr ? threshold : LevelFromText(wanted);
    auto implementation = std::make_unique<DefaultLoggerImpl>();
    implementation->Configure(tag, level.value_or(threshold));
    if (!level)
    {
        implementation->Write(LogLevel::Warning,
                              __FILE__,
                              __LINE__,
                              __func__,
                              fmt::format("{} is no level: {}", LevelVariable, wanted));
    }
    return implementation;
}

}  // namespace

void TVOLogger::Setup(const char* tag,
                      LogLevel level,
                      std::unique_ptr<DefaultLoggerImpl> implementation)
{
    if (implementation)
    {
        implementation->Configure(tag, level);
    }
    else
    {
        implementation = MakeConfigured(tag, level);
    }
    RootLogger().Use(KeptImplementations::Instance().Keep(std::move(implementation)));
}

void TVOLogger::Use(DefaultLoggerImpl& implementation) noexcept
{
    m_implementation.store(&implementation, std::memory_order_release);
}

void TVOLogger::LogImpl(LogLevel level,
                        const char* file,
                        int line,
                        const char* function,
                        std::string& message)
{
    if (level < LogLevel::Off)
    {
        Implementation().Write(level, file, line, function, message);
    }
}

DefaultLoggerImpl& TVOLogger::MakeDefault()
{
    DefaultLoggerImpl& made =
        KeptImplementations::Instance().Keep(MakeConfigured(TagBeforeSetup, LogLevel::Info));
    DefaultLoggerImpl* current = nullptr;
    m_implementation.compare_exchange_strong(current, &made, std::memory_order_acq_rel);
    return current != nullptr ? *current : made;
}

}  // namespace tvo::logger
