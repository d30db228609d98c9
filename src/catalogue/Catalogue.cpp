// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Catalogue.h"

#include "catalogue/Colours.h"
#include "catalogue/ICatalogueSaveFlow.h"
#include "catalogue/IListWindow.h"
#include "platform/IDialogs.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <algorithm>

namespace nubo::catalogue {

using platform::MessageAnswer;

namespace {

QString emptyCountLine()
{
    return QStringLiteral("La lista esta vacia");
}

} // namespace

Catalogue::Catalogue(const platform::IDrives& drives, platform::IDialogs& dialogs, QObject* parent)
    : QObject(parent), m_dialogs(dialogs), m_list(this), m_reader(m_list), m_deriver(drives),
      m_info(this)
{
    // Emptying the list, by the user or at the program's end, abandons its reads.
    connect(&m_list, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_reader.cancel(); });
    m_discs.setGroupRenamer(
        [this](const QString& from, const QString& to) { return renameGroupRows(from, to); });
}

void Catalogue::refreshDiscTotals()
{
    m_discs.setTotals(DiscTotals::of(m_list));
}

// Renaming a group changes the rows, so it waits, as every change of the rows does, while a
// save or load has the list.
QString Catalogue::renameGroupRows(const QString& from, const QString& to)
{
    if (refuseWhileBusy())
        return m_info.text();
    if (m_list.hasGroup(to))
        return QStringLiteral("Ya hay archivos del grupo \"%1\" en la lista: elija otro nombre.")
            .arg(to);
    m_list.renameGroup(from, to);
    return {};
}

void Catalogue::setGroupName(const QString& name)
{
    m_groupName = name;
}

void Catalogue::setCurrentFile(const QString& path)
{
    m_currentFile = path;
    emit currentFileChanged(path);
}

void Catalogue::setBusy(bool busy)
{
    if (busy == m_busy)
        return;
    m_busy = busy;
    emit busyChanged(busy);
}

bool Catalogue::refuseWhileBusy()
{
    if (!m_busy && !m_waiting)
        return false;
    ShowInfoMessage(QStringLiteral("Espere a que la lista termine de guardarse o cargarse (Esc "
                                   "lo detiene)"),
                    5000, colours::kRed);
    return true;
}

void Catalogue::AddFileToList(QString& path)
{
    if (QFileInfo(path).isFile())
        AddKnownFileToList(path);
}

void Catalogue::AddKnownFileToList(QString& path)
{
    const QString file = path;
    CatalogueRow row = m_deriver.derive(path);
    row.origen = m_groupName;
    m_list.insertAtTop(std::move(row));
    if (m_readsDetails)
        m_reader.enqueue(m_list.handleOf(0), file);
    UpdateCountLine();
}

bool Catalogue::waitForDetails()
{
    if (m_waiting)
        return false;
    // A wait during a search (a sort between two folders) reads what the walk has queued.
    m_reader.setWalking(false);
    if (m_reader.applyReady())
        return true;
    m_waiting = true;
    m_stopWait = false;
    // The bar shows only for a wait long enough to be seen.
    constexpr int kShowAfterMs = 150;
    QElapsedTimer waited;
    waited.start();
    const int total = m_reader.pending();
    bool shown = false;
    bool finished = false;
    while (!(finished = m_reader.applyReady()) && !m_stopWait) {
        if (!shown && m_waitWindow && waited.elapsed() >= kShowAfterMs) {
            m_waitWindow->showProgress(total);
            m_waitWindow->setListEnabled(false);
            shown = true;
        }
        if (shown)
            m_waitWindow->setProgress(std::max(0, total - m_reader.pending()));
        QCoreApplication::processEvents();
        m_reader.waitForResults(20);
    }
    if (!finished)
        m_reader.cancel();
    if (shown) {
        m_waitWindow->hideProgress();
        m_waitWindow->setListEnabled(true);
    }
    m_waiting = false;
    return finished;
}

// The plural is kept even for one row.
void Catalogue::UpdateCountLine()
{
    setCountLine(QStringLiteral("La lista contiene %1 archivos actualmente").arg(m_list.count()));
}

void Catalogue::setCountLine(const QString& text)
{
    if (text == m_countLine)
        return;
    m_countLine = text;
    emit countLineChanged(text);
}

void Catalogue::DeleteSelectedRows(const std::vector<int>& positions)
{
    if (refuseWhileBusy())
        return;
    if (m_list.isEmpty()) {
        ShowInfoMessage(
            QStringLiteral("ADVERTENCIA: No se pueden eliminar archivos de una lista vacia!"),
            10000, colours::kRed);
        setCountLine(emptyCountLine());
        return;
    }
    // Rows go only once the reads under way have found theirs.
    (void)waitForDetails();
    const int removed = m_list.removePositions(positions);
    const QString left = QString::number(m_list.count());
    // Kept: the count line's singular or plural follows the rows removed, not the rows left;
    // with nothing removed the message's count is an empty text, leaving two blanks.
    if (removed > 1) {
        ShowInfoMessage(QStringLiteral("Han sido eliminados %1 archivos de la lista").arg(removed),
                        5000, colours::kBlue);
        setCountLine(QStringLiteral("La lista contiene ") + left +
                     QStringLiteral(" archivos actualmente"));
    } else {
        const QString count = removed == 0 ? QString() : QString::number(removed);
        ShowInfoMessage(QStringLiteral("Ha sido eliminado ") + count +
                            QStringLiteral(" archivo de la lista"),
                        5000, colours::kBlue);
        setCountLine(QStringLiteral("La lista contiene ") + left +
                     QStringLiteral(" archivo actualmente"));
    }
}

EmptyOutcome Catalogue::EmptyList()
{
    if (refuseWhileBusy())
        return EmptyOutcome::Stopped;
    if (m_list.isEmpty()) {
        ShowInfoMessage(QStringLiteral("No es posible vaciar una lista vacia"), 5000,
                        colours::kRed);
        return EmptyOutcome::Kept;
    }
    const EmptyOutcome answer = offerToSave();
    if (answer != EmptyOutcome::Emptied)
        return answer;
    setCurrentFile(QString());
    m_list.clear();
    m_discs.clear();
    // Kept: the count line shows its last number until the next addition or deletion.
    ShowInfoMessage(QStringLiteral("La lista ha sido vaciada"), 10000, colours::kBlue);
    return EmptyOutcome::Emptied;
}

// "Yes" empties only once the save has written every row: a failed, refused or stopped save
// (or a save dialog left without a name) keeps the rows and the save's own message.
EmptyOutcome Catalogue::offerToSave()
{
    const QString current = m_currentFile;
    const MessageAnswer answer = m_dialogs.messageBox(
        QStringLiteral("¿ Desea guardar la lista ") + current + QStringLiteral("?"),
        QStringLiteral("Guardar lista actual"), platform::MessageButtons::YesNoCancel,
        platform::MessageIcon::Question);
    if (answer == MessageAnswer::No)
        return EmptyOutcome::Emptied;
    if (answer != MessageAnswer::Yes)
        return EmptyOutcome::Kept;
    if (!m_saveFlow)
        return EmptyOutcome::Stopped;
    if (!current.isEmpty())
        return m_saveFlow->saveToCurrentFile(current) ? EmptyOutcome::Emptied
                                                      : EmptyOutcome::Stopped;
    const QString chosen = m_saveFlow->askSaveAsName();
    if (chosen.isEmpty() || !m_saveFlow->saveToPath(chosen))
        return EmptyOutcome::Stopped;
    return EmptyOutcome::Emptied;
}

// The order is one setting for the whole list and flips on every click, whatever the column.
void Catalogue::SortByColumn(int column)
{
    if (column < 0 || column >= kColumnCount || refuseWhileBusy())
        return;
    // A sort made before every row's details are read sorts them all read; after Escape, the
    // details read so far.
    if (m_waiting)
        return;
    (void)waitForDetails();
    m_sortOrder = m_sortOrder == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_list.sortByColumn(static_cast<Column>(column), m_sortOrder);
}

void Catalogue::ShowInfoMessage(const QString& text, qint16 delayMs, quint32 colour)
{
    m_info.ShowInfoMessage(text, delayMs, colour);
}

} // namespace nubo::catalogue
