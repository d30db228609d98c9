// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::platform {

// The desktop shell: opening a file in its default application, queueing it in the
// associated player, and the "open with" chooser for files without an association.
class IShell
{
public:
    enum class Result { Ok, NoAssociation, Failed };

    virtual ~IShell() = default;

    // "open": the default application for the file's MIME type.
    virtual Result open(const QString& path) = 0;
    // "Enqueue": the associated player's own enqueue option where it has one, else "open".
    virtual Result enqueue(const QString& path) = 0;
    // Lets the user pick a program, then starts it with the path as its only argument.
    [[nodiscard]] virtual bool openWith(const QString& path) = 0;
};

} // namespace nubo::platform
