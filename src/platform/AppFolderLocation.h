// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::platform {

// Decides which folder is the application folder: the executable's own folder for a
// portable program, or the user's data folder for an installed one.
class AppFolderLocation final
{
public:
    AppFolderLocation(QString executableFolder, QString dataHome, bool executableFolderWritable);

    // The running program's places: its executable's folder and $XDG_DATA_HOME.
    static AppFolderLocation ofRunningProgram();

    // The pictures an installed program ships, in <prefix>/share/nubo beside <prefix>/bin.
    QString installedPictures() const;
    // $XDG_DATA_HOME/nubo.
    QString userFolder() const;
    // An installed program, or one whose folder the user cannot write, keeps its folders
    // in the user's data folder; so even root never writes beside /usr/bin.
    bool usesUserFolder() const;

    // The application folder to use; nothing is written.
    QString folder() const;
    // The application folder, made ready: the user's folder is created when missing and given
    // every installed picture it lacks (so deleted folders come back); none is overwritten.
    QString prepare() const;

private:
    void copyMissingPictures() const;

    QString m_executableFolder;
    QString m_dataHome;
    bool m_executableFolderWritable;
};

} // namespace nubo::platform
