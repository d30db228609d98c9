// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::search {

// What the folder walk reports to: the catalogue list and the current-folder strip.
class IWalkHost
{
public:
    virtual ~IWalkHost() = default;

    virtual void addFileToList(const QString& path) = 0; // AddFileToList with a copy
    // A path the folder listing already says is a regular file: no look-up needed.
    virtual void addKnownFileToList(const QString& path) { addFileToList(path); }
    virtual void setFolderStrip(const QString& text) = 0; // Picture1 cleared, text printed
    // One folder's files are added between these two; the list window scrolls to its bottom at
    // the end of each.
    virtual void beginFolderBatch() = 0;
    virtual void endFolderBatch() = 0;
    virtual void letEventsRun() = 0; // pending window events
    // A file or folder whose name the file system holds in bytes that are not UTF-8; path
    // shows them read as Windows-1252.
    virtual void undecodableName(const QString& path) { Q_UNUSED(path); }
    // Whether the walk adds and enters such names as they show; otherwise it leaves them out
    // (the command line, whose rows must name files exactly, reports them instead).
    virtual bool takesUndecodableNames() const { return false; }
};

} // namespace nubo::search
