// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/SourceFile.h"

#include "database/FileCause.h"

#include <QFile>
#include <QLocale>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo::database {
namespace {

// Closes the descriptor on every way out.
struct Descriptor
{
    int fd;
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
};

Failure refused(const QString& text)
{
    return {text};
}

QString megabytes(qint64 bytes)
{
    return QLocale(QLocale::Spanish, QLocale::Spain).toString(bytes >> 20);
}

} // namespace

Outcome<QByteArray> readSourceFile(const QString& path, qint64 limit)
{
    Outcome<QList<QByteArray>> blocks = readSourceBlocks(path, 0, limit);
    if (!blocks)
        return Failure{blocks.reason()};
    return blocks->isEmpty() ? QByteArray() : std::move(blocks->first());
}

Outcome<QList<QByteArray>> readSourceBlocks(const QString& path, qsizetype blockSize, qint64 limit)
{
    const Descriptor file{
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)};
    if (file.fd < 0) {
        return refused(errno == ENOENT ? QStringLiteral("No se encuentra el archivo %1.").arg(path)
                                       : QStringLiteral("No se puede abrir el archivo %1: %2")
                                             .arg(path, fileErrorCause(errno)));
    }
    struct stat st
    {
    };
    if (::fstat(file.fd, &st) != 0)
        return refused(
            QStringLiteral("No se puede abrir el archivo %1: %2").arg(path, fileErrorCause(errno)));
    if (!S_ISREG(st.st_mode))
        return refused(QStringLiteral("%1 no es un archivo normal (es una carpeta, una tubería o "
                                      "un dispositivo): no se lee.")
                           .arg(path));
    if (st.st_size > limit)
        return refused(QStringLiteral("%1 ocupa %2 MB, más de lo que puede ocupar un catálogo "
                                      "(%3 MB): no se lee.")
                           .arg(path, megabytes(st.st_size), megabytes(limit)));
    const auto size = qsizetype(st.st_size);
    const qsizetype block = blockSize > 0 ? blockSize : std::max<qsizetype>(size, 1);
    QList<QByteArray> blocks;
    for (qsizetype at = 0; at < size; at += block) {
        QByteArray bytes(std::min(block, size - at), Qt::Uninitialized);
        qsizetype done = 0;
        while (done < bytes.size()) {
            const ssize_t n = ::read(file.fd, bytes.data() + done, size_t(bytes.size() - done));
            if (n < 0 && (errno == EINTR || errno == EAGAIN))
                continue;
            if (n < 0)
                return refused(QStringLiteral("No se puede leer el archivo %1: %2")
                                   .arg(path, fileErrorCause(errno)));
            if (n == 0)
                break; // the file shrank while it was read: what is there is all there is
            done += n;
        }
        bytes.truncate(done);
        blocks.append(std::move(bytes));
        if (done < block)
            break;
    }
    if (blocks.isEmpty())
        blocks.append(QByteArray());
    return blocks;
}

} // namespace nubo::database
