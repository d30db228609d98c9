// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::core {

// An INI file read and written with the semantics of the platform's profile-string calls:
// an absent key gives the caller's default; "KEY=" gives zero characters; section and key
// names match without regard to case; a write creates the file and section and replaces
// or appends the key; a read returns at most bufferSize - 1 characters.
class ProfileFile final
{
public:
    explicit ProfileFile(QString path);

    const QString& path() const { return m_path; }

    QString readString(const QString& section, const QString& key, const QString& defaultText,
                       int bufferSize = 255) const;
    [[nodiscard]] bool writeString(const QString& section, const QString& key,
                                   const QString& value);
    [[nodiscard]] bool remove();

private:
    QString m_path;
};

} // namespace nubo::core
