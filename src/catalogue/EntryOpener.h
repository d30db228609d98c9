// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace nubo::core {
class Options;
}
namespace nubo::platform {
class IShell;
}

namespace nubo::catalogue {

class Catalogue;
class EntryPathResolver;

// Hands catalogue rows to the desktop shell: playing, queueing and the double-click open.
class EntryOpener final
{
public:
    EntryOpener(Catalogue& catalogue, const EntryPathResolver& resolver, platform::IShell& shell,
                const core::Options& options)
        : m_catalogue(catalogue), m_resolver(resolver), m_shell(shell), m_options(options)
    {
    }

    // "open" for the row that has the focus; the shell's outcome is not checked. A file that
    // is not found is reported on the message line instead (which file, or which group's disc).
    void PlaySelectedEntry(int focusedPosition);
    // "Enqueue" for every selected row (its list position), top to bottom; missing files are
    // reported as above.
    void EnqueueSelectedEntries(std::vector<int> positions);
    // With the double-click option on: "open" for the focused row, and the "open with"
    // chooser when no application is associated with the file.
    void ExecuteOnDoubleClick(int focusedPosition);

    // True, after telling the user, when path shows a file whose name on the disc is not
    // UTF-8: it was listed as Windows-1252 reads it and cannot be opened by that name.
    bool refuseNotUtf8Name(const QString& path);

private:
    // The row's existing file, or the empty text after telling the user it was not found.
    QString foundPath(int position);

    Catalogue& m_catalogue;
    const EntryPathResolver& m_resolver;
    platform::IShell& m_shell;
    const core::Options& m_options;
};

} // namespace nubo::catalogue
