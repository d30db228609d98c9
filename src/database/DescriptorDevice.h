// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIODevice>

namespace nubo::database {

// A write-only, seekable device over an open file descriptor it does not own. Writes go
// straight to the system (no buffer to lose), and a failed one keeps its errno, whose Spanish
// cause becomes the error string.
class DescriptorDevice final : public QIODevice
{
public:
    explicit DescriptorDevice(int fd);

    bool isSequential() const override { return false; }
    bool seek(qint64 pos) override;
    qint64 size() const override;
    // The errno of the last failed write or seek; 0 when none failed.
    int lastErrno() const { return m_errno; }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    void failWith(int error);

    int m_fd;
    int m_errno = 0;
};

} // namespace nubo::database
