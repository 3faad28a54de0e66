#pragma once

#include <QGuiApplication>

/// A QGuiApplication for one test case. What a case needs besides it lives shorter than it.
class GuiApplication
{
    int m_argc = 1;
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    QGuiApplication m_application{m_argc, m_argv};
};
