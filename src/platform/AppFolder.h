// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::platform {

// The application folder, and the resolver that turns the program's relative resource
// names ("\bitmap\conarrows.JPG") into real paths on a case-sensitive file system.
class AppFolder final
{
public:
    explicit AppFolder(QString path);

    const QString& path() const { return m_path; }

    // '\' and '/' both separate; each component matches an existing entry without regard
    // to case. Components that match nothing are kept as written, so the result can be
    // used to create a file that does not exist yet.
    QString resolve(const QString& relative) const;

    // Creates a folder directly below the application folder; a folder of the same name in
    // any case is left alone. True when the folder exists afterwards.
    bool createFolder(const QString& name) const;

    // Resolves a relative part against any folder, with the same rules.
    static QString resolveIn(const QString& base, const QString& relative);

private:
    QString m_path;
};

} // namespace nubo::platform
