// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/AtomicSaveFile.h"

#include "database/FileCause.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo::database {
namespace {

constexpr mode_t kNewFileMode = 0666; // narrowed by the umask, as any new file
constexpr mode_t kModeBits = 07777;
const char* const kTempMark = ".nubo-";

// A temporary name unique within this process and among live processes.
QByteArray tempNameFor(const QByteArray& base)
{
    static std::atomic<unsigned> counter{0};
    return '.' + base + kTempMark + QByteArray::number(qint64(::getpid())) + '-' +
           QByteArray::number(counter++);
}

} // namespace

AtomicSaveFile::AtomicSaveFile(QString path, Temporary temporary)
    : m_path(std::move(path)), m_temporary(temporary)
{
}

AtomicSaveFile::~AtomicSaveFile()
{
    discard();
}

Failure AtomicSaveFile::failed(const QString& what, int error)
{
    closeAll();
    return {what.arg(m_path) + QLatin1Char(' ') + fileErrorCause(error)};
}

void AtomicSaveFile::closeAll()
{
    m_device.reset();
    if (m_fd >= 0)
        ::close(m_fd);
    if (!m_tempName.isEmpty() && m_dirFd >= 0)
        ::unlinkat(m_dirFd, m_tempName.constData(), 0);
    if (m_dirFd >= 0)
        ::close(m_dirFd);
    m_fd = m_dirFd = -1;
    m_tempName.clear();
}

void AtomicSaveFile::discard()
{
    closeAll();
}

// Refuses anything but a regular file (FIFOs, devices, folders, dangling symlinks), and
// follows a symlink so that the file it leads to is replaced, not the link.
Outcome<> AtomicSaveFile::resolveTarget()
{
    const QByteArray named = QFile::encodeName(m_path);
    struct stat st
    {
    };
    m_replaces = ::lstat(named.constData(), &st) == 0;
    if (!m_replaces && errno != ENOENT)
        return failed(QStringLiteral("No se puede examinar %1:"), errno);
    m_final = QFile::encodeName(QFileInfo(m_path).absoluteFilePath());
    if (m_replaces && S_ISLNK(st.st_mode)) {
        char resolved[PATH_MAX];
        if (::realpath(named.constData(), resolved) == nullptr || ::stat(resolved, &st) != 0)
            return Failure{QStringLiteral("%1 es un enlace a un archivo que no existe: no se "
                                          "escribe en él.")
                               .arg(m_path)};
        m_final = resolved;
    }
    if (m_replaces && !S_ISREG(st.st_mode))
        return Failure{QStringLiteral("%1 no es un archivo normal (es una carpeta, una tubería o "
                                      "un dispositivo): no se escribe en él.")
                           .arg(m_path)};
    m_oldUid = st.st_uid;
    m_oldGid = st.st_gid;
    m_oldMode = st.st_mode & kModeBits;
    const qsizetype slash = m_final.lastIndexOf('/');
    m_folder = slash <= 0 ? QByteArray("/") : m_final.left(slash);
    m_base = m_final.mid(slash + 1);
    return {};
}

// Leftovers of saves of this name killed once their file had a name (always so on a file
// system without unnamed files); those of a save still running in another process stay.
void AtomicSaveFile::removeLeftovers() const
{
    const QString prefix = QFile::decodeName('.' + m_base + kTempMark);
    const QDir folder(QFile::decodeName(m_folder));
    const QStringList names =
        folder.entryList({prefix + QLatin1Char('*')}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : names) {
        const qint64 pid = name.mid(prefix.size()).section(QLatin1Char('-'), 0, 0).toLongLong();
        if (pid > 0 && pid != ::getpid() && ::kill(pid_t(pid), 0) == 0)
            continue;
        QFile::remove(folder.filePath(name));
    }
}

Outcome<> AtomicSaveFile::createUnnamed()
{
    if (m_temporary == Temporary::Named)
        return createNamed();
    m_fd = ::openat(m_dirFd, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, kNewFileMode);
    if (m_fd >= 0)
        return {};
    if (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)
        return createNamed();
    return failed(QStringLiteral("No se puede crear el archivo %1:"), errno);
}

Outcome<> AtomicSaveFile::createNamed()
{
    m_tempName = tempNameFor(m_base);
    m_fd = ::openat(m_dirFd, m_tempName.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC,
                    kNewFileMode);
    if (m_fd >= 0)
        return {};
    const int error = errno;
    m_tempName.clear();
    return failed(QStringLiteral("No se puede crear el archivo %1:"), error);
}

Outcome<> AtomicSaveFile::open()
{
    discard();
    if (Outcome<> step = resolveTarget(); !step)
        return step;
    m_dirFd = ::open(m_folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_dirFd < 0)
        return failed(QStringLiteral("No se puede abrir la carpeta de %1:"), errno);
    removeLeftovers();
    if (Outcome<> step = createUnnamed(); !step)
        return step;
    if (Outcome<> step = giveOwnerAndMode(); !step)
        return step;
    m_device = std::make_unique<DescriptorDevice>(m_fd);
    return {};
}

// The new file takes the replaced one's mode, and its owner where we may give it.
Outcome<> AtomicSaveFile::giveOwnerAndMode()
{
    if (!m_replaces)
        return {};
    struct stat st
    {
    };
    if (::fstat(m_fd, &st) == 0 && (st.st_uid != m_oldUid || st.st_gid != m_oldGid) &&
        ::fchown(m_fd, m_oldUid, m_oldGid) != 0 && errno != EPERM)
        return failed(QStringLiteral("No se puede dar a %1 su propietario:"), errno);
    // File systems without Unix modes (a FAT memory stick) may refuse; the file is still saved.
    if (::fchmod(m_fd, mode_t(m_oldMode)) != 0 && errno != EPERM && errno != EOPNOTSUPP)
        return failed(QStringLiteral("No se pueden dar a %1 sus permisos:"), errno);
    return {};
}

Outcome<> AtomicSaveFile::nameAndReplace()
{
    if (m_tempName.isEmpty()) {
        const QByteArray self = "/proc/self/fd/" + QByteArray::number(m_fd);
        m_tempName = tempNameFor(m_base);
        if (::linkat(AT_FDCWD, self.constData(), m_dirFd, m_tempName.constData(),
                     AT_SYMLINK_FOLLOW) != 0 &&
            ::linkat(m_fd, "", m_dirFd, m_tempName.constData(), AT_EMPTY_PATH) != 0) {
            const int error = errno;
            m_tempName.clear();
            return failed(QStringLiteral("No se puede guardar %1:"), error);
        }
    }
    if (::renameat(m_dirFd, m_tempName.constData(), m_dirFd, m_base.constData()) != 0)
        return failed(QStringLiteral("No se puede reemplazar %1:"), errno);
    m_tempName.clear();
    return {};
}

Outcome<> AtomicSaveFile::commit()
{
    if (m_fd < 0)
        return Failure{QStringLiteral("%1 no está abierto.").arg(m_path)};
    m_device.reset();
    if (::fsync(m_fd) != 0)
        return failed(QStringLiteral("No se puede escribir en el archivo %1:"), errno);
    if (Outcome<> step = nameAndReplace(); !step)
        return step;
    if (::fsync(m_dirFd) != 0 && errno != EINVAL)
        return failed(QStringLiteral("No se puede asentar la carpeta de %1:"), errno);
    closeAll();
    return {};
}

} // namespace nubo::database
