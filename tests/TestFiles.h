// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <filesystem>

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

// Makes an empty file under a name given as bytes, which need not be UTF-8 (QFile cannot name
// such a file).
inline bool writeRawName(const QByteArray& path)
{
    FILE* file = std::fopen(path.constData(), "w");
    return file && std::fclose(file) == 0;
}

// Removes a file or folder named in bytes when the test leaves its scope, however it leaves:
// QTemporaryDir cannot remove names that are not UTF-8 and would leave its folder behind.
class RemovedAtEnd final
{
public:
    explicit RemovedAtEnd(QByteArray path) : m_path(std::move(path)) {}
    ~RemovedAtEnd()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path.toStdString(), ignored);
    }
    RemovedAtEnd(const RemovedAtEnd&) = delete;
    RemovedAtEnd& operator=(const RemovedAtEnd&) = delete;

private:
    QByteArray m_path;
};

} // namespace nubo::test
