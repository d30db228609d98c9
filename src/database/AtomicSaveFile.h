// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/DescriptorDevice.h"
#include "platform/Outcome.h"

#include <QString>

#include <memory>

namespace nubo::database {

// The one way a catalogue file is written: into an unnamed file in the target's folder, which
// commit() flushes, names and renames over the target, then flushes the folder. Until then the
// previous file stays byte for byte; a process killed mid-save leaves nothing behind (killed
// between naming and renaming, or where the file system has no unnamed files, a hidden
// ".NAME.nubo-PID-N" that the next save of the same name removes). Only a regular file, or a
// symlink to one, is replaced; a new name is created. A replaced file's owner and mode pass to the
// new one.
class AtomicSaveFile final
{
public:
    // Unnamed where the file system has them; Named is what file systems without them get.
    enum class Temporary { Unnamed, Named };

    explicit AtomicSaveFile(QString path, Temporary temporary = Temporary::Unnamed);
    ~AtomicSaveFile(); // discards unless committed
    AtomicSaveFile(const AtomicSaveFile&) = delete;
    AtomicSaveFile& operator=(const AtomicSaveFile&) = delete;

    [[nodiscard]] Outcome<> open();
    // Whether the target existed when open() ran.
    bool replacesFile() const { return m_replaces; }
    // Written from its start; valid between open() and commit() or discard().
    DescriptorDevice* device() { return m_device.get(); }
    [[nodiscard]] Outcome<> commit();
    void discard();

private:
    Outcome<> resolveTarget();
    Outcome<> createUnnamed();
    Outcome<> createNamed();
    Outcome<> giveOwnerAndMode();
    Outcome<> nameAndReplace();
    void removeLeftovers() const;
    Failure failed(const QString& what, int error);
    void closeAll();

    QString m_path;     // as the caller named it, for messages
    QByteArray m_final; // the file that is replaced: the path, or where its symlink leads
    QByteArray m_folder;
    QByteArray m_base;
    QByteArray m_tempName; // in m_folder; empty while the file has no name
    int m_dirFd = -1;
    int m_fd = -1;
    Temporary m_temporary;
    bool m_replaces = false;
    unsigned m_oldUid = 0;
    unsigned m_oldGid = 0;
    unsigned m_oldMode = 0;
    std::unique_ptr<DescriptorDevice> m_device;
};

} // namespace nubo::database
