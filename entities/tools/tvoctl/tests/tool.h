#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "failure.h"
#include "fake_settings.h"
#include "run.h"
#include "tree.h"

namespace tvoctl {

/// The program over a store of the test's own.
class Tool : public ::testing::Test
{
protected:
    /// @param arguments  those behind `settings`, parted by "|"
    int Run(const std::string& arguments)
    {
        return RunTool("settings|" + arguments);
    }

    /// @param arguments  all of them
    int RunTool(const std::string& arguments)
    {
        std::vector<std::string> words{"tvoctl"};
        std::istringstream split(arguments);
        for (std::string word; std::getline(split, word, '|');)
        {
            words.push_back(word);
        }
        std::vector<const char*> argv;
        for (const std::string& word : words)
        {
            argv.push_back(word.c_str());
        }
        m_stream.str("");
        m_err.str("");
        Environment environment{.connectSettings =
                                    [this](const std::string& server, auto /*patience*/)
                                {
                                    ++m_connections;
                                    m_server = server;
                                    return Connect();
                                },
                                .connectManager = m_connectManager,
                                .listServices = m_listServices,
                                .endOnSignals = [this] { m_isGuarded = true; },
                                .keepWatching = [this] { return NextStep(); },
                                .in = m_in,
                                .out = m_out};
        return tvoctl::Run(static_cast<int>(argv.size()), argv.data(), environment, m_err);
    }

    std::shared_ptr<FakeSettings> Connect() const
    {
        if (!m_settings)
        {
            throw Failure(ExitStatus::NoService, "it is not there");
        }
        return m_settings;
    }

    bool NextStep()
    {
        const std::size_t step = m_step++;
        if (step < m_steps.size())
        {
            m_steps[step]();
        }
        return step < m_steps.size();
    }

    std::shared_ptr<FakeSettings> m_settings = std::make_shared<FakeSettings>();
    ConnectManager m_connectManager;
    ListServices m_listServices;
    std::string m_server;
    int m_connections = 0;
    bool m_isGuarded = false;
    std::vector<std::function<void()>> m_steps;  ///< what happens while the tool watches
    std::size_t m_step = 0;
    std::istringstream m_in;
    std::ostringstream m_stream;
    Output m_out{m_stream};
    std::ostringstream m_err;
};

}  // namespace tvoctl
