// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueList.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace nubo::catalogue {

// Reads the details of rows (size, date, tags, length) off the interface thread, so rows show
// as soon as they are found and their detail columns fill in as the reads come back.
//
// Contract: files are queued with a handle on their row; results reach the list on the
// interface thread, in batches (one view update per batch), through CatalogueList::setDetails,
// which skips rows whose handle went stale. Whoever removes, sorts or clears rows first waits
// for the reads (wait) or abandons them (cancel); a stale handle only ever loses a result,
// it never puts one on another row.
class DetailReader final : public QObject
{
    Q_OBJECT
public:
    static constexpr int kReaders = 2;
    static constexpr int kBatchIntervalMs = 50;
    static constexpr int kIdleThreadMs = 5000;

    explicit DetailReader(CatalogueList& list, QObject* parent = nullptr);
    ~DetailReader() override;
    DetailReader(const DetailReader&) = delete;
    DetailReader& operator=(const DetailReader&) = delete;

    using ReadFunction = std::function<core::FileDetails(const QString& path)>;
    // How one file is read (tags::readFileDetails unless set); called on the reader threads.
    // Set before any file is queued.
    void setReadFunction(ReadFunction read) { m_read = std::move(read); }
    // One reader, in the order files are queued: an optical disc is read in directory order
    // rather than made to seek between two readers.
    void setInOrder(bool inOrder);
    // While a walk adds rows, the files it queues wait; they are read when it ends (or when
    // setWalking(false) comes earlier: someone waits for them).
    void setWalking(bool walking);
    void enqueue(CatalogueList::RowHandle row, const QString& path);
    // Files queued or being read, and results not yet on the list.
    int pending() const;
    // Puts every result that came back on the list; true when nothing is pending any more.
    bool applyReady();
    // Waits up to timeoutMs for a result or for the reads to end.
    void waitForResults(int timeoutMs);
    // Drops the files not read yet and the results not yet on the list; reads under way end
    // on their own and are discarded.
    void cancel();

private:
    struct Job
    {
        CatalogueList::RowHandle row;
        QString path;
        quint64 round;
    };
    void readLoop();
    void resultReady();
    // Starts read loops up to the number allowed now; m_mutex held.
    void startReaders();
    int maxReaders() const;

    CatalogueList& m_list;
    ReadFunction m_read;
    QThreadPool m_pool;
    QTimer m_batchTimer;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Job> m_queue;
    QList<std::pair<CatalogueList::RowHandle, core::FileDetails>> m_done;
    int m_reading = 0;       // files being read now
    int m_readers = 0;       // read loops running
    quint64 m_round = 0;     // a cancel starts a new round; older reads are discarded
    bool m_notified = false; // a batch is announced to the interface thread
    bool m_inOrder = false;
    bool m_walking = false;
};

} // namespace nubo::catalogue
