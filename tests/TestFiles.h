// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

// Small file helpers shared by the tests.
namespace nubo::test {

inline QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Writes bytes to path, creating its folder; false when that fails.
inline bool writeFile(const QString& path, const QByteArray& bytes = "x")
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Writes bytes to path and returns the path; a test that cannot write its input cannot go on.
inline QString writtenFile(const QString& path, const QByteArray& bytes)
{
    if (!writeFile(path, bytes))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

} // namespace nubo::test
