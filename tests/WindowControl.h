// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <string>

namespace nubo::test {

// A window's control found by its name, as the user finds it on screen; a test that cannot find
// the control it drives cannot go on.
template <class T> T* control(const QObject& window, const char* name)
{
    T* found = window.findChild<T*>(QLatin1String(name));
    if (!found)
        qFatal("no control %s in %s", name, qPrintable(window.objectName()));
    return found;
}

// One control of a numbered set (Picture1 .. Picture5).
template <class T> T* control(const QObject& window, const std::string& name)
{
    return control<T>(window, name.c_str());
}

} // namespace nubo::test
