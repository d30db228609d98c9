// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DetailReader.h"

#include "tags/FileDetailsReader.h"

#include <QThread>

#include <algorithm>
#include <chrono>

namespace nubo::catalogue {

DetailReader::DetailReader(CatalogueList& list, QObject* parent)
    : QObject(parent), m_list(list), m_read(&tags::readFileDetails)
{
    m_pool.setMaxThreadCount(kReaders);
    // A walk that queues files no faster than they are read empties the queue again and again:
    // each new read loop then finds its thread still there.
    m_pool.setExpiryTimeout(kIdleThreadMs);
    m_batchTimer.setSingleShot(true);
    m_batchTimer.setInterval(kBatchIntervalMs);
    connect(&m_batchTimer, &QTimer::timeout, this, [this] { (void)applyReady(); });
}

DetailReader::~DetailReader()
{
    cancel();
    m_pool.waitForDone();
}

void DetailReader::setInOrder(bool inOrder)
{
    const std::lock_guard lock(m_mutex);
    m_inOrder = inOrder;
}

void DetailReader::setWalking(bool walking)
{
    const std::lock_guard lock(m_mutex);
    m_walking = walking;
    startReaders();
}

// A walk keeps the interface thread busy: reads wait for its end, so rows come as fast as
// without them and an optical disc is not made to seek between the walk and the reads.
int DetailReader::maxReaders() const
{
    if (m_walking)
        return 0;
    if (m_inOrder)
        return 1;
    return std::clamp(QThread::idealThreadCount(), 1, kReaders);
}

void DetailReader::startReaders()
{
    const int allowed = maxReaders();
    for (int queued = int(m_queue.size()); m_readers < allowed && queued > 0; --queued) {
        ++m_readers;
        m_pool.start([this] { readLoop(); });
    }
}

void DetailReader::enqueue(CatalogueList::RowHandle row, const QString& path)
{
    const std::lock_guard lock(m_mutex);
    m_queue.push_back({row, path, m_round});
    startReaders();
}

void DetailReader::readLoop()
{
    std::unique_lock lock(m_mutex);
    while (!m_queue.empty()) {
        const Job job = std::move(m_queue.front());
        m_queue.pop_front();
        ++m_reading;
        lock.unlock();
        core::FileDetails details = m_read(job.path);
        lock.lock();
        --m_reading;
        if (job.round == m_round) {
            m_done.append({job.row, std::move(details)});
            if (!m_notified) {
                m_notified = true;
                QMetaObject::invokeMethod(this, &DetailReader::resultReady, Qt::QueuedConnection);
            }
        }
        m_changed.notify_all();
    }
    --m_readers;
    m_changed.notify_all();
}

// Results are gathered for a moment, so the views hear of them in batches.
void DetailReader::resultReady()
{
    if (!m_batchTimer.isActive())
        m_batchTimer.start();
}

int DetailReader::pending() const
{
    const std::lock_guard lock(m_mutex);
    return int(m_queue.size()) + m_reading + int(m_done.size());
}

bool DetailReader::applyReady()
{
    QList<std::pair<CatalogueList::RowHandle, core::FileDetails>> batch;
    bool finished = false;
    {
        const std::lock_guard lock(m_mutex);
        batch.swap(m_done);
        m_notified = false;
        finished = m_queue.empty() && m_reading == 0;
    }
    if (!batch.isEmpty())
        m_list.setDetails(batch);
    return finished;
}

void DetailReader::waitForResults(int timeoutMs)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                       [this] { return !m_done.isEmpty() || (m_queue.empty() && m_reading == 0); });
}

void DetailReader::cancel()
{
    const std::lock_guard lock(m_mutex);
    m_queue.clear();
    m_done.clear();
    ++m_round;
    m_changed.notify_all();
}

} // namespace nubo::catalogue
