// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QDirIterator>
#include <QWidget>

#include "TestFiles.h"

// The running program as the tests and the benchmarks that start it see it.
namespace nubo::test {

// The program's top-level window with that object name, or nothing.
template <typename Window> Window* topLevelWindow(const char* name)
{
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String(name))
            return qobject_cast<Window*>(w);
    return nullptr;
}

// Lays out an application folder as a fresh install has it: the shipped pictures below
// sourceDir/resources, and options without animations or log (so no frame run delays a test).
inline bool layOutProgramFolder(const QString& app, const QString& sourceDir)
{
    const QString shipped = sourceDir + QStringLiteral("/resources");
    QDirIterator it(shipped, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        if (!writeFile(app + source.mid(shipped.size()), fileBytes(source)))
            return false;
    }
    return writeFile(app + QStringLiteral("/Ini/Config.nbo"),
                     "[OPCIONES]\r\nDBLCLKEXECUTE=1\r\nPERMITIRANIMS=0\r\nESCRIBIRLOG=0\r\n"
                     "CONFIGEXCEL=0\r\nMOSTRARPRO=0\r\nMINSTANCES=1\r\n");
}

} // namespace nubo::test
